#pragma once
// The frame that every written web page has: head, rows, links to its sisters, foot. Pages are GB18030 bytes
// with lines ended by CR LF.

#include <QString>

/// What a user typed as text of a page: it cannot become markup.
QString PageText(const QString& text);

/// Page n of a chain of pages that are written one by one; a page stands as a file when it is closed.
class WebPages {
 public:
    /// head: the lines under the page's banner that head its table. pages is the planned number: the links
    /// run to it even if the chain ends early.
    WebPages(const QString& stem, int pages, int rowsPerPage);

    /// True when the next row begins a page: the last one is closed, and the head's lines are wanted.
    bool NeedsPage() const;
    void BeginPage(const QString& head);
    void AddRow(const QString& row);
    void Close();
    int Page() const { return page_; }

 private:
    QString stem_;
    int pages_;
    int rowsPerPage_;
    int page_ = 0;
    int rows_ = 0;
    QString text_;
};

/// Full path of a page of a chain.
QString PagePath(const QString& stem, int page);
/// nHtmPageSize as it can be used.
int RowsPerPage();
int PageCount(int rows, int rowsPerPage);
