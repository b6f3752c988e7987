#include "output/print_layout.h"

#include "output/print_columns.h"
#include "output/print_wrap.h"
#include "store/dates.h"
#include "store/errors.h"
#include "store/messages.h"
#include "store/text.h"

#include <QStringList>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr double kLeft = 20, kTop = 25, kNextTop = kTop - 10;
constexpr double kLine = 6, kTitle = 10;
constexpr double kListFoot = 30, kRecordFoot = 20, kEdge = 10;
constexpr double kInset = 0.5;  // of a text in its cell
constexpr double kLeastRoom = 20;
constexpr size_t kQuestionAt = 99;
constexpr int kRowsPerPage = 40;

const QString kOmitted = u"......有省略内容（墨鹊理财提示）"_s;

struct Planned {
    PrintInfo info;
    std::vector<PrintColumn> columns;
};

QString OrderOf(const PrintInfo& info) {
    if (!info.layout.isEmpty()) return u" order by Sort1"_s;
    for (const auto& table : {u"tAccount"_s, u"tSubAccItem"_s, u"tNotebook"_s})
        if (info.table.compare(table, Qt::CaseInsensitive) == 0) return u" order by date1,time1,id1"_s;
    return {};
}

QString KeysOf(const std::vector<PrintColumn>& columns) {
    QStringList keys;
    for (const auto& column : columns)
        keys << column.key;
    return keys.join(u',');
}

// A text on the one line that a cell has.
QString CellText(const QString& value) {
    const bool plain = std::none_of(value.begin(), value.end(),
                                    [](QChar c) { return c < u' ' || c == u'\u2028' || c == u'\u2029'; });
    return plain ? value : OneLine(value).replace(u'\t', u' ');
}

class Layout {
 public:
    Layout(cConnection& book, Job& job, const PrintSlots& slots) : book_(book), job_(job), slots_(slots) {}

    PrintDocument Run(const std::vector<PrintInfo>& documents) {
        const auto plan = Plan(documents);
        document_.turned = FitsOnlyTurned(plan);
        for (const auto& planned : plan) {
            if (ended_) break;
            Print(planned);
        }
        AddFooters();
        Tell(maximum_, 2);
        return std::move(document_);
    }

 private:
    std::vector<Planned> Plan(const std::vector<PrintInfo>& documents) {
        std::vector<Planned> plan;
        for (const auto& info : documents)
            plan.push_back({info, ReadPrintColumns(book_, info)});
        return plan;
    }

    bool FitsOnlyTurned(const std::vector<Planned>& plan) const {
        const PrintDocument upright{.turned = false}, turned{.turned = true};
        return std::any_of(plan.begin(), plan.end(), [&](const Planned& planned) {
            const double right = kLeft + WidthOf(planned.columns);
            return planned.info.list && right > upright.Width() && right <= turned.Width();
        });
    }

    void Print(const Planned& planned) {
        if (y_ > document_.Height() - kListFoot && !NextPage()) return;
        y_ = std::max(y_, kTop);
        Text({kLeft, y_, 0, PrintAlign::left, PrintFont::title, CellText(planned.info.title)});
        y_ += kTitle;
        const QString where = u" from "_s + planned.info.table + u" where 1 "_s + planned.info.condition;
        const StatementWatch watch(book_, [this] { return job_.GoOn(); });
        auto count = TryRead(u"select count(*)"_s + where);
        if (planned.columns.empty() || !count || !count->Next()) return;
        const auto rows = static_cast<int>(count->Int(0));
        count.reset();
        auto values = TryRead(u"select "_s + KeysOf(planned.columns) + where + OrderOf(planned.info));
        if (!values) return;
        maximum_ = rows / kRowsPerPage + 1;
        Tell(maximum_, 0);
        if (planned.info.list)
            PrintList(planned.columns, *values);
        else
            PrintRecords(planned.columns, *values);
        ended_ = ended_ || job_.Stopped();
    }

    std::optional<cReader> TryRead(const QString& sql) {
        std::optional<cReader> rows;
        Succeeds([&] { rows.emplace(book_.Read(sql)); });
        return rows;
    }

    // Counts a row, gives way; true when the layout ends here.
    bool Stopped() {
        job_.Step(++rows_);
        return job_.Stopped();
    }

    void PrintList(const std::vector<PrintColumn>& columns, cReader& rows) {
        Head(columns);
        for (int number = 1; rows.Next(); ++number) {
            if (y_ > document_.Height() - kListFoot) {
                if (!NextPage()) return;
                Head(columns);
            }
            Row(columns, rows, number);
            y_ += kLine;
            if (Stopped()) return;
        }
    }

    void Head(const std::vector<PrintColumn>& columns) {
        const double right = kLeft + WidthOf(columns);
        Line({kLeft, y_, right, y_, PrintPen::strong});
        Line({kLeft, y_ + kLine, right, y_ + kLine, PrintPen::strong});
        Cell(kLeft, kNumberWidth, PrintAlign::left, u"序号"_s);
        double x = kLeft + kNumberWidth;
        for (const auto& column : columns) {
            Cell(x, column.width, PrintAlign::left, CellText(column.caption));
            x += column.width;
        }
        y_ += kLine;
    }

    void Row(const std::vector<PrintColumn>& columns, const cReader& row, int number) {
        Cell(kLeft, kNumberWidth, PrintAlign::left, QString::number(number));
        double x = kLeft + kNumberWidth;
        int at = 0;
        for (const auto& column : columns) {
            Cell(x, column.width, column.align, CellText(PrintedValue(row, at++, column)));
            x += column.width;
        }
        const double bottom = y_ + kLine;
        Line({kLeft, bottom, x, bottom, PrintPen::thin});
        Line({kLeft, y_, kLeft, bottom, PrintPen::thin});
        x = kLeft + kNumberWidth;
        Line({x, y_, x, bottom, PrintPen::thin});
        for (const auto& column : columns) {
            x += column.width;
            Line({x, y_, x, bottom, PrintPen::thin});
        }
    }

    void Cell(double x, double width, PrintAlign align, const QString& text) {
        if (width > 2 * kInset) Text({x + kInset, y_, width - 2 * kInset, align, PrintFont::list, text});
    }

    void PrintRecords(const std::vector<PrintColumn>& fields, cReader& rows) {
        while (rows.Next()) {
            int at = 0;
            for (const auto& field : fields) {
                if (y_ > document_.Height() - kRecordFoot && !NextPage()) return;
                Field(field.caption + u"：  "_s, PrintedValue(rows, at++, field));
            }
            if (Stopped()) return;
        }
    }

    void Field(const QString& caption, const QString& value) {
        const auto width = [this](const QString& text) {
            return slots_.textWidth(text, PrintFont::standard);
        };
        Text({kLeft, y_, 0, PrintAlign::left, PrintFont::standard, CellText(caption)});
        const double x = kLeft + width(caption);
        const double room = std::max(kLeastRoom, document_.Width() - kLeft - x);
        const double end = document_.Height() - kRecordFoot;
        const auto most = static_cast<qsizetype>((end - y_) / kLine) + 1;
        auto wrapped = WrapText(value, room, most, width);
        if (!wrapped.whole) wrapped.lines.last() = kOmitted;
        for (const auto& line : wrapped.lines) {
            Text({x, y_, 0, PrintAlign::left, PrintFont::standard, line});
            y_ += kLine;
        }
    }

    // False when the user wants no more pages.
    bool NextPage() {
        Tell(static_cast<int>(document_.pages.size()), 1);
        if (document_.pages.size() == kQuestionAt &&
            ShowMsg(u"超过100页，是否继续打印？ 如何继续将需要几分钟到十几分钟!"_s, u"否,是"_s, kMsgAsk) !=
                1) {
            ended_ = true;
            return false;
        }
        const auto items = document_.pages.back().items.size();
        document_.pages.emplace_back().items.reserve(items);
        y_ = kNextTop;
        return true;
    }

    void AddFooters() {
        const double right = document_.Width() - kEdge, y = document_.Height() - kEdge;
        const QString now = u"打印时间:"_s + NowText();
        const QString pages = u" / "_s + QString::number(document_.pages.size());
        int number = 0;
        for (auto& page : document_.pages) {
            const QString numbered = u"页码:"_s + QString::number(++number) + pages;
            const auto add = [&](PrintAlign align, const QString& text) {
                page.items.emplace_back(PrintText{kLeft, y, right - kLeft, align, PrintFont::standard, text});
            };
            add(PrintAlign::left, u"【墨鹊理财v2016.2】"_s);
            add(PrintAlign::centre, numbered);
            add(PrintAlign::right, now);
            page.items.emplace_back(PrintLine{kLeft, y, right, y, PrintPen::strong});
        }
    }

    void Text(PrintText&& text) {
        if (!text.text.isEmpty()) document_.pages.back().items.emplace_back(std::move(text));
    }
    void Line(PrintLine&& line) { document_.pages.back().items.emplace_back(line); }
    void Tell(int value, int state) const {
        if (slots_.progress) slots_.progress(value, maximum_, state);
    }

    cConnection& book_;
    Job& job_;
    const PrintSlots& slots_;
    PrintDocument document_;
    double y_ = 0;
    int rows_ = 0;
    int maximum_ = 0;
    bool ended_ = false;
};

}  // namespace

PrintDocument PrintAll(cConnection& book, const std::vector<PrintInfo>& documents, Job& job,
                       const PrintSlots& slots) {
    return Layout(book, job, slots).Run(documents);
}
