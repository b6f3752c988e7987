#pragma once
// The frame that every written web page has: head, rows, links to its sisters, foot. Pages are GB18030 bytes
// with lines ended by CR LF.

#include <QByteArray>
#include <QString>
#include <QStringList>

/// A text as the bytes of a page.
QByteArray PageBytes(const QString& text);
/// What a user typed as text of a page: it cannot become markup.
QString PageText(const QString& text);

/// A chain of pages that is written row by row; a page stands as a file when it is closed.
class WebPages {
 public:
    /// head: what heads the rows of every page. pages is the planned number: the links run to it even if the
    /// chain ends early.
    WebPages(const QString& stem, const QString& head, int pages, int rowsPerPage);

    /// Where the bytes of the next row go, without its line break.
    QByteArray& BeginRow();
    /// Closes the last page. The files, in order.
    QStringList Close();

 private:
    void BeginPage();
    void WritePage();

    QString stem_;
    QByteArray head_, links_;
    int pages_;
    int rowsPerPage_;
    int page_ = 0;
    int rows_ = 0;
    QByteArray text_;
};

/// Full path of a page of a chain.
QString PagePath(const QString& stem, int page);
/// nHtmPageSize as it can be used.
int RowsPerPage();
int PageCount(int rows, int rowsPerPage);
