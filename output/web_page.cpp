#include "output/web_page.h"

#include "output/export_files.h"
#include "store/dates.h"
#include "store/state.h"

#include <QStringEncoder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kUsualPageSize = 50;
constexpr qsizetype kUsualPageBytes = 65536;

const QString kBreak = u"\r\n"_s;

// The words page and date of the foot are replaced when a page is closed.
const QStringList& HeadLines() {
    static const QStringList lines{
        u"<html>"_s,
        u"<head>"_s,
        u"<meta http-equiv=\"Content-Type\" content=\"text/html; charset=gb2312\" />"_s,
        u"<title>墨鹊流理财-查询</title>"_s,
        u"<link href=\"Html/css.css\" rel=\"STYLESHEET\" type=\"text/css\">"_s,
        u"</head>"_s,
        u"<body topmargin=\"0\">"_s,
        {},
        u"<table background=\"Html/Banner.jpg\" class=\"st\" height=\"78\" align=\"center\"><tr><td>\u3000</td></tr></table>"_s,
        u"<table border=\"0\" cellpadding=\"5\" cellspacing=\"0\" class=\"st\"  align =\"center\" width=\"80%\" >"_s};
    return lines;
}

const QStringList& FootLines() {
    static const QStringList lines{u"</table>"_s,
                                   {},
                                   u"<table border=\"0\" width=\"800px\" align=\"center\">"_s,
                                   u"<tr><td>page</td></tr>"_s,
                                   u"<tr><td>date</td></tr>"_s,
                                   u"</table>"_s,
                                   u"</body></html>"_s};
    return lines;
}

}  // namespace

QByteArray PageBytes(const QString& text) {
    static const auto isAscii = [](QChar c) { return c.unicode() < 0x80; };
    if (std::ranges::all_of(text, isAscii)) return text.toLatin1();
    // Opening a converter takes longer than most texts.
    static QStringEncoder encoder("GB18030", QStringEncoder::Flag::Stateless);
    return encoder.encode(text);
}

QString PageText(const QString& text) {
    const auto isPlain = [](QChar c) { return c != u'&' && c != u'<' && c != u'>' && c != u'"'; };
    return std::ranges::all_of(text, isPlain) ? text : text.toHtmlEscaped();
}

QString PagePath(const QString& stem, int page) {
    return ExportPath(stem + u'_' + QString::number(page) + u".html"_s);
}

int RowsPerPage() {
    const int size = State().settings.nHtmPageSize;
    return size > 0 ? size : kUsualPageSize;
}

int PageCount(int rows, int rowsPerPage) {
    return rows / rowsPerPage + (rows % rowsPerPage != 0 ? 1 : 0);
}

WebPages::WebPages(const QString& stem, const QString& head, int pages, int rowsPerPage)
    : stem_(stem),
      head_(PageBytes(HeadLines().join(kBreak) + kBreak + head + kBreak)),
      pages_(pages),
      rowsPerPage_(rowsPerPage) {
    const QByteArray link = PageBytes(u" <a href='"_s + PageText(stem_) + u'_');
    for (int i = 1; i <= pages_; ++i) {
        const QByteArray number = QByteArray::number(i);
        links_ += link + number + ".html'>" + number + "</a>";
    }
}

void WebPages::BeginPage() {
    if (page_ > 0) WritePage();
    ++page_;
    rows_ = 0;
    text_ = head_;
    text_.reserve(kUsualPageBytes);
}

QByteArray& WebPages::BeginRow() {
    if (page_ == 0 || rows_ == rowsPerPage_) BeginPage();
    if (rows_ > 0) text_ += "\r\n";
    ++rows_;
    return text_;
}

void WebPages::WritePage() {
    QByteArray foot = PageBytes(kBreak + FootLines().join(kBreak) + kBreak);
    foot.replace("date", PageBytes(u"查询时间："_s + NowText()));
    foot.replace("page", PageBytes(u"共"_s + QString::number(pages_) + u"页，当前第"_s +
                                   QString::number(page_) + u"页，"_s) +
                             links_);
    WriteWholeFile(PagePath(stem_, page_), text_ + foot);
}

QStringList WebPages::Close() {
    WritePage();
    QStringList files;
    for (int page = 1; page <= page_; ++page)
        files << PagePath(stem_, page);
    return files;
}
