#pragma once
// A web page as a row of form elements, in the order of the document and with tag, type, name and value as a
// browser gives them.

#include "web/code_page.h"

#include <QString>

#include <vector>

struct PageElement {
    QString tag;   ///< INPUT, TEXTAREA, SELECT or BUTTON
    QString type;  ///< in lower case; "text" where the page names none
    QString name;
    QString value;      ///< line breaks are CR LF
    int form = -1;      ///< index into the forms, -1 outside
    bool sends = true;  ///< belongs to what its form sends: not disabled, and ticked where it can be
};

struct PageForm {
    QString action;   ///< as it stands, relative to the page
    QString method;   ///< "get" or "post"
    QString charset;  ///< code page of what is sent
};

struct WebPage {
    QString fault;     ///< why the page is not read at all; empty when it is
    bool cut = false;  ///< it ends in the middle
    QString base;      ///< the address that the page names for relative ones; often empty
    std::vector<PageElement> elements;
    std::vector<PageForm> forms;
};

constexpr qsizetype kLargestPage = qsizetype{16} << 20;  ///< bytes

/// Reads bytes as they came; charset is the code page that the header told, or empty.
WebPage ReadPage(const QByteArray& bytes, const QString& charset);
/// Reads a page whose characters are known.
WebPage ReadPageText(const DecodedPage& page);
