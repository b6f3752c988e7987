#include "output/web_page.h"

#include "output/export_files.h"
#include "store/dates.h"
#include "store/state.h"

#include <QStringEncoder>

using namespace Qt::StringLiterals;

namespace {

constexpr int kUsualPageSize = 50;

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
                                   u"<table width=\"800px\" align=\"center\">"_s,
                                   u"<tr><td>page</td></tr>"_s,
                                   u"<tr><td>date</td></tr>"_s,
                                   u"</table>"_s,
                                   u"</body></html>"_s};
    return lines;
}

}  // namespace

QString PageText(const QString& text) {
    return text.toHtmlEscaped();
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

WebPages::WebPages(const QString& stem, int pages, int rowsPerPage)
    : stem_(stem), pages_(pages), rowsPerPage_(rowsPerPage) {}

bool WebPages::NeedsPage() const {
    return page_ == 0 || rows_ == rowsPerPage_;
}

void WebPages::BeginPage(const QString& head) {
    if (page_ > 0) Close();
    ++page_;
    rows_ = 0;
    text_ = HeadLines().join(kBreak) + kBreak + head + kBreak;
}

void WebPages::AddRow(const QString& row) {
    text_ += row;
    text_ += kBreak;
    ++rows_;
}

void WebPages::Close() {
    QString links;
    for (int i = 1; i <= pages_; ++i) {
        const QString number = QString::number(i);
        links += u" <a href='"_s + PageText(stem_) + u'_' + number + u".html'>"_s + number + u"</a>"_s;
    }
    const QString line =
        u"共"_s + QString::number(pages_) + u"页，当前第"_s + QString::number(page_) + u"页，"_s + links;
    QString foot = FootLines().join(kBreak);
    foot.replace(u"date"_s, u"查询时间："_s + NowText());
    foot.replace(u"page"_s, line);
    QStringEncoder encoder("GB18030");
    WriteWholeFile(PagePath(stem_, page_), encoder.encode(text_ + foot + kBreak));
    text_.clear();
}
