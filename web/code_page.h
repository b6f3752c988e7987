#pragma once
// Code pages of web pages: what a page's bytes say, and how a form's values go back.

#include <QByteArray>
#include <QString>

struct DecodedPage {
    QString text;
    QString charset;  ///< name of the code page that was used
};

/// A page's text by its mark, the header's code page (empty: none told) or the page's own word. Where the
/// bytes are not of the code page that was told, UTF-8 and GB18030 are tried.
DecodedPage DecodePage(const QByteArray& bytes, const QString& headerCharset);

/// The code page in the value of a Content-Type header; empty when it names none.
QString CharsetOfHeader(const QString& contentType);

/// A form's text in its code page, as a browser sends it: what the code page does not have as its number,
/// line breaks as CR LF.
QByteArray FormBytes(const QString& text, const QString& charset);
/// The same as it stands in an address or in a body of that kind: blanks as "+", other signs as %XX.
QByteArray FormEncoded(const QString& text, const QString& charset);

/// Characters above 0x7F and all but letters and digits as %XX of their UTF-8.
QByteArray AddressEncoded(const QString& text);
