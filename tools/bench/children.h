#pragma once
// Starts of whole programs, each as a process of its own in a world of its own.

#include <QString>

struct StartFigures {
    double milliseconds = 0;
    double megabytes = 0;
};

class Children {
 public:
    /// folder: where the children's program folder and home are laid out; tools: where their programs are.
    Children(QString folder, QString tools);

    /// Medians of several starts on a book.
    StartFigures Program(const QString& book, int runs) const;
    /// The least window that reads and shows the lines of query.
    StartFigures LeastWindow(const QString& book, const QString& query, int runs) const;
    /// Peak memory of the agent at rest, in MB.
    double AgentMemory() const;

 private:
    StartFigures Run(const QString& program, const QStringList& arguments, int runs) const;
    StartFigures RunOnce(const QString& program, const QStringList& arguments) const;
    QString folder_;
    QString tools_;
};
