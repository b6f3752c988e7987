#include "books/backup.h"
#include "books/book_form.h"
#include "chart/codes.h"
#include "output/print_columns.h"
#include "output/search.h"
#include "pictures/view_geometry.h"
#include "stats/period_report.h"
#include "store/dates.h"
#include "store/messages.h"
#include "store/money.h"
#include "store/paths.h"
#include "store/places.h"
#include "store/state.h"
#include "store/text.h"
#include "tools/drive/request.h"

#include <functional>
#include <map>

using namespace Qt::StringLiterals;

namespace {

struct Arguments {
    QJsonArray values;
    PathStyle style;

    QString Text(int i) const { return values.at(i).toVariant().toString(); }
    int Whole(int i) const { return values.at(i).toVariant().toInt(); }
    double Number(int i) const { return values.at(i).toVariant().toDouble(); }
    bool Flag(int i) const { return values.at(i).toBool(); }
};

QJsonArray Texts(const QStringList& texts) {
    return QJsonArray::fromStringList(texts);
}

QJsonValue QuickPeriodTexts(const Arguments& a) {
    const auto labels = QuickPeriodLabels(a.Text(0));
    return Texts({labels.first, labels.second});
}

QJsonValue Parsed(const Arguments& a) {
    const auto parsed = ParseCodeName(a.Text(0));
    return Texts({parsed.code, parsed.name});
}

// The argument as the name of a chart's table, looked at before the function runs.
Chart ChartAt(const Arguments& a, int i) {
    return ChartOf(a.Text(i)).value_or(Chart::kinds);
}

QJsonValue Sums(const Arguments& a) {
    const auto sums = BranchSums(State().gDB, ChartAt(a, 0), a.Text(1));
    return Texts({sums.added, sums.reduced, sums.balance});
}

// Increase and decrease of a period from the sum of its amounts and the signed sum.
QJsonValue Split(const Arguments& a) {
    const auto split = SplitSums(a.Number(0), a.Number(1));
    return Texts({MoneyText(split.added), MoneyText(split.reduced)});
}

QJsonValue NameOfFile(const Arguments& a) {
    QString path = a.Text(0);
    return FileNameOf(path, a.Whole(1), a.style);
}

QJsonValue Folders(const Arguments& a) {
    return a.style == NativeStyle() ? MakeFolders(a.Text(0)) : PlanFolders(a.Text(0), a.style).error;
}

// A 32-bit number without the digits that it does not have.
double Plain(float x) {
    constexpr int kDigits = 7;
    return QString::number(x, 'g', kDigits).toDouble();
}

QJsonValue Fitted(const Arguments& a) {
    const auto fit = FitToBox(a.Number(0), a.Number(1), a.Number(2), a.Number(3));
    if (!fit) return false;
    return QJsonArray{fit->width, fit->height, fit->x, fit->y, Plain(fit->zoom)};
}

// The new factor; what is told at a limit goes to the boxes.
QJsonValue Zoomed(const ZoomStep& step) {
    if (!step.message.isEmpty()) ShowMsg(step.message);
    return Plain(step.zoom);
}

QJsonArray Pixels(PixelSize size) {
    return {size.width, size.height};
}

QJsonValue Resized(const Arguments& a) {
    const auto size = ReSizeOf({a.Whole(0), a.Whole(1)}, {a.Whole(2), a.Whole(3)}, a.Flag(4));
    return size ? QJsonValue(Pixels(*size)) : QJsonValue(false);
}

QJsonValue Forbidden(const Arguments& a) {
    return IsForbiddenBox(a.Text(0), a.style, a.Text(1), ProgramFolder());
}

struct Function {
    std::function<QJsonValue(const Arguments&)> value;
    int table = -1;  ///< which argument names a chart, -1 none
};

const std::map<QString, Function>& Functions() {
    static const std::map<QString, Function> functions{
        {u"MoneyText"_s, {[](const auto& a) { return MoneyText(a.Number(0)); }}},
        {u"GroupNumber"_s, {[](const auto& a) {
             return GroupNumber(a.Number(0), State().settings.nGroup, a.Text(1), a.Text(2));
         }}},
        {u"PadByWidth"_s, {[](const auto& a) { return PadByWidth(a.Whole(0), a.Text(1)); }}},
        {u"IndentByDepth"_s, {[](const auto& a) { return IndentByDepth(a.Text(0), a.Flag(1)); }}},
        {u"DaysInMonth"_s, {[](const auto& a) { return DaysInMonth(a.Whole(0), a.Whole(1)); }}},
        {u"NowText"_s, {[](const auto&) { return NowText(); }}},
        {u"TimeText"_s, {[](const auto& a) { return TimeText(a.Flag(0)); }}},
        {u"TodayText"_s, {[](const auto& a) { return TodayText(a.Text(0)); }}},
        {u"QuickPeriod"_s, {QuickPeriodTexts}},
        {u"ParseCodeName"_s, {Parsed}},
        {u"FileNameOf"_s, {NameOfFile}},
        {u"ParentPath"_s, {[](const auto& a) { return ParentPath(a.Text(0)); }}},
        {u"NameByCode"_s,
         {[](const auto& a) { return NameByCode(State().gDB, a.Text(0), ChartAt(a, 1)); }, 1}},
        {u"IsLeafCode"_s,
         {[](const auto& a) { return IsLeafCode(State().gDB, a.Text(0), ChartAt(a, 1)); }, 1}},
        {u"CodePathText"_s,
         {[](const auto& a) { return CodePathText(State().gDB, ChartAt(a, 0), a.Text(1), a.Flag(2)); }, 0}},
        {u"BranchSums"_s, {Sums, 0}},
        {u"ReplaceValue"_s, {[](const auto& a) { return ReplaceValue(a.Text(0), a.Text(1)); }}},
        {u"SplitSums"_s, {Split}},
        {u"Highlight"_s, {[](const auto& a) { return Highlight(a.Text(0), a.Text(1)); }}},
        {u"FitToBox"_s, {Fitted}},
        {u"ZoomIn"_s, {[](const auto& a) { return Zoomed(ZoomIn(static_cast<float>(a.Number(0)))); }}},
        {u"ZoomOut"_s, {[](const auto& a) { return Zoomed(ZoomOut(static_cast<float>(a.Number(0)))); }}},
        {u"ThumbnailSize"_s, {[](const auto& a) {
             return Pixels(ThumbnailSize({a.Whole(0), a.Whole(1)}, {a.Whole(2), a.Whole(3)}, a.Flag(4)));
         }}},
        {u"ReSizeOf"_s, {Resized}},
        {u"GdiErrorString"_s, {[](const auto& a) { return GdiErrorString(a.Whole(0)); }}},
        {u"MakeFolders"_s, {Folders}},
        {u"IsForbiddenBox"_s, {Forbidden}},
        {u"ForbiddenBox"_s, {Forbidden}},
        {u"IsNameAllowed"_s, {[](const auto& a) { return IsNameAllowed(a.Text(0)); }}},
        {u"SizeText"_s, {[](const auto& a) { return SizeText(a.values.at(0).toVariant().toLongLong()); }}},
        {u"BackupFolder"_s, {[](const auto& a) { return BackupFolder(a.Text(0), a.style); }}},
    };
    return functions;
}

QJsonObject AnswerTexts(const QJsonObject& request) {
    const auto function = Functions().find(request[u"fn"].toString());
    if (function == Functions().end()) return Failure(u"unknown function"_s);
    const QString style = request[u"style"].toString();
    const Arguments arguments{request[u"args"].toArray(), style.isEmpty()       ? NativeStyle()
                                                          : style == u"windows" ? PathStyle::windows
                                                                                : PathStyle::posix};
    const int table = function->second.table;
    if (table >= 0 && !ChartOf(arguments.Text(table))) return Failure(u"unknown table"_s);
    return {{u"ok"_s, true}, {u"value"_s, function->second.value(arguments)}};
}

}  // namespace

std::span<const Request> TextRequests() {
    static const Request requests[] = {
        {u"texts", {{u"fn", FieldType::text}, {u"style", FieldType::text}}, AnswerTexts}};
    return requests;
}
