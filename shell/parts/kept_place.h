#pragma once
// What a user has made of a list, kept over a load that reads its lines anew.

#include <QString>

#include <set>
#include <utility>

class KestroList;

class KeptPlace {
 public:
    /// What makes a line the same one after the load.
    enum class Line { key, keyAndSubKey };

    explicit KeptPlace(const KestroList& list, Line line = Line::key);
    /// Sort, marks, current line and scroll. Where the current line has gone, the one that took its place is
    /// current.
    void PutBack(KestroList& list) const;

 private:
    using Name = std::pair<QString, QString>;
    Name NameOf(const KestroList& list, int row) const;

    Line line_;
    int sorted_;
    bool ascending_;
    int scroll_;
    int row_;
    Name current_;
    std::set<Name> checked_;
};
