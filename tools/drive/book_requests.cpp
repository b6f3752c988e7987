// The driver's requests on books: making, changing, deleting and copying them, and the general settings.

#include "books/backup.h"
#include "books/book_change.h"
#include "books/book_delete.h"
#include "books/book_new.h"
#include "books/book_password.h"
#include "books/carry_forward.h"
#include "books/general_settings.h"
#include "store/book_box.h"
#include "store/book_check.h"
#include "store/dialogs.h"
#include "store/messages.h"
#include "tools/drive/request.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// What the next input boxes are answered with.
class TypedPassword {
 public:
    explicit TypedPassword(const QString& text) {
        RegisterDialog(kDlgInput, [text](QPoint) {
            InputDialog input;
            input.text = text;
            input.done = 1;
        });
    }
    ~TypedPassword() { ClearDialogs(); }
    TypedPassword(const TypedPassword&) = delete;
    TypedPassword& operator=(const TypedPassword&) = delete;
};

QString FocusOf(BookField field) {
    switch (field) {
        case BookField::name:
            return u"name"_s;
        case BookField::pass:
            return u"pass"_s;
        default:
            return {};
    }
}

QJsonObject Saved(const BookSaved& saved) {
    if (!saved.done) return Refusal({}, FocusOf(saved.focus));
    return {{u"ok"_s, true}, {u"path"_s, saved.path}};
}

// The rows of a check list; nullopt when the field is neither "all" nor a list of row numbers.
std::optional<std::vector<bool>> MarksOf(const QJsonValue& field, size_t rows) {
    if (field.isUndefined()) return std::vector<bool>(rows, false);
    if (field.toString() == u"all") return std::vector<bool>(rows, true);
    if (!field.isArray()) return {};
    std::vector<bool> marks(rows, false);
    for (const auto& value : field.toArray()) {
        const auto row = value.toInteger(-1);
        if (row < 0 || row >= static_cast<qint64>(rows)) return {};
        marks[static_cast<size_t>(row)] = true;
    }
    return marks;
}

// As choosing it in the window does; null after its box.
const BookRecord* ChosenReference(const QString& name, const QString& pass) {
    const auto* book = BookOfBox(name);
    if (!book) {
        ShowMsg(u"账本盒中没有账本【"_s + name + u"】!"_s);
        return nullptr;
    }
    if (!CheckBook(static_cast<int>(book - State().gBooks.data()))) return nullptr;
    const TypedPassword typed(pass);
    if (AskBookPassword(*book)) return book;
    ShowMsg(u"口令不正确!"_s);
    return nullptr;
}

// The box of years takes no other text.
bool IsYear(const QString& text) {
    return text.size() == 4 && std::ranges::all_of(text, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

QJsonObject AnswerBookNew(const QJsonObject& r) {
    if (State().settings.sDBPath.isEmpty()) return Failure(u"no book box"_s);
    BookForm form{.name = r[u"name"].toString(),
                  .year = r[u"year"].toString(OfferedYears().at(10)),
                  .note = r[u"note"].toString(),
                  .pass = r[u"pass"].toString(),
                  .passAgain = r[u"pass2"].toString(r[u"pass"].toString()),
                  .moreOptions = r.contains(u"reference"_s),
                  .reference = r[u"reference"].toString(),
                  .carry = {r[u"kinds"].toBool(), r[u"accounts"].toBool(), {}, {}}};
    if (!IsYear(form.year)) return Failure(u"bad field: year"_s);
    if (!form.reference.isEmpty()) {
        const auto* reference = ChosenReference(form.reference, r[u"referencePass"].toString());
        if (!reference) return Refusal({}, {});
        form.reference = reference->Name;
        const auto lists = ReadCarryLists(*reference);
        const auto kinds = MarksOf(r[u"kindRows"], lists.kinds.size());
        const auto accounts = MarksOf(r[u"accountRows"], lists.accounts.size());
        if (!kinds || !accounts) return Failure(u"bad field: kindRows or accountRows"_s);
        form.carry.kindMarks = *kinds;
        form.carry.accountMarks = *accounts;
    }
    return Saved(CreateBook(form));
}

QJsonArray Lines(const std::vector<CarryRow>& rows) {
    QJsonArray lines;
    for (size_t i = 0; i < rows.size(); ++i)
        lines.append(
            QJsonObject{{u"key"_s, QString::number(i)},
                        {u"cells"_s, CellsOf({QString::number(i + 1), rows[i].name, rows[i].money})}});
    return lines;
}

QJsonObject AnswerReference(const QJsonObject& r) {
    const auto* book = ChosenReference(r[u"name"].toString(), r[u"pass"].toString());
    if (!book) return Refusal({}, {});
    const auto lists = ReadCarryLists(*book);
    return {{u"ok"_s, true}, {u"kinds"_s, Lines(lists.kinds)}, {u"accounts"_s, Lines(lists.accounts)}};
}

QJsonObject AnswerBookChange(const QJsonObject& r) {
    const QString path = r[u"path"].toString();
    const auto facts = ReadBookFacts(BookAt(path));
    const auto given = [&](const QString& key, const QString& otherwise) {
        return r[key].toString(otherwise);
    };
    BookForm form;
    form.name = facts.name;
    form.year = given(u"year"_s, facts.year);
    form.note = given(u"note"_s, facts.note);
    form.pass = given(u"pass"_s, facts.pass);
    form.passAgain = given(u"pass2"_s, facts.pass);
    if (form.year != facts.year && !IsYear(form.year)) return Failure(u"bad field: year"_s);
    const TypedPassword typed(r[u"oldPass"].toString());
    return Saved(SaveBookChange(path, form));
}

QJsonObject AnswerBookZip(const QJsonObject& r) {
    Job job;
    const auto book = BookAt(r[u"path"].toString());
    const qint64 before = BookFileSize(book);
    if (CompressBook(book, job) != Compression::done) return Refusal({}, {});
    const qint64 after = BookFileSize(book);
    ShowMsg(CompressedText(before, after), u"确定"_s, kMsgNone);
    return {{u"ok"_s, true}, {u"before"_s, before}, {u"after"_s, after}};
}

QJsonObject AnswerBookDelete(const QJsonObject& r) {
    const TypedPassword typed(r[u"pass"].toString());
    if (!DeleteSelectedBook(FindBook(r[u"path"].toString()))) return Refusal({}, {});
    return {{u"ok"_s, true}};
}

QJsonObject AnswerBooks(const QJsonObject&) {
    QJsonArray lines;
    for (const auto& book : State().gBooks)
        if (!book.Name.isEmpty())
            lines.append(
                QJsonObject{{u"key"_s, book.Path},
                            {u"cells"_s, CellsOf({QString::number(lines.size() + 1),
                                                  QString::number(book.Year), book.Name, book.Version})}});
    return {{u"ok"_s, true}, {u"lines"_s, lines}, {u"current"_s, State().gCurBook}};
}

// The first field whose value the page does not offer.
QString WrongSetting(const QJsonObject& r) {
    static const QStringList periods{u"week"_s,  u"today"_s,    u"yestoday"_s, u"rcently"_s,
                                     u"month"_s, u"premonth"_s, u"year"_s,     u"all"_s};
    const int split = r[u"split"].toInt(0), items = r[u"htmItems"].toInt(10);
    if (split < 0 || split > 2) return u"split"_s;
    if (items < 10 || items > 100 || items % 10 != 0) return u"htmItems"_s;
    return periods.contains(r[u"load"].toString(u"all"_s)) ? QString() : u"load"_s;
}

QJsonObject AnswerSettings(const QJsonObject& r) {
    if (!State().gSetDB.IsOpen()) return Failure(u"no settings file"_s);
    if (const QString wrong = WrongSetting(r); !wrong.isEmpty()) return Failure(u"bad field: "_s + wrong);
    auto& settings = State().settings;
    if (r.contains(u"htmItems"_s)) settings.nHtmPageSize = r[u"htmItems"].toInt();
    if (r.contains(u"load"_s)) settings.LoadDate = r[u"load"].toString();
    if (r.contains(u"agent"_s)) settings.nShowAgentIco = r[u"agent"].toBool() ? 1 : 0;
    GeneralForm form{settings.nGroup, r[u"path"].toString(settings.sDBPath),
                     r[u"webName"].toString(settings.sWebName), r[u"webPass"].toString(settings.sWebPass)};
    if (r.contains(u"split"_s)) form.nGroup = GroupOfOption(r[u"split"].toInt());
    const auto saved = SaveGeneralSettings(form);
    if (!saved.message.isEmpty()) ShowMsg(saved.message, u"确定"_s, saved.icon);
    if (!saved.restart.isEmpty()) ShowMsg(saved.restart, u"确定"_s, kMsgWarn, u"提示"_s, 400, 200);
    return {{u"ok"_s, true}, {u"path"_s, saved.box}, {u"restart"_s, !saved.restart.isEmpty()}};
}

QJsonObject AnswerPlaces(const QJsonObject&) {
    QJsonArray lines;
    for (const auto& place : BackupPlaces())
        lines.append(
            QJsonObject{{u"key"_s, place.key}, {u"cells"_s, CellsOf({place.text, place.icon, place.path})}});
    return {{u"ok"_s, true}, {u"lines"_s, lines}};
}

QJsonObject AnswerBackup(const QJsonObject& r) {
    if (r[u"to"].toString().isEmpty()) return Failure(u"bad field: to"_s);
    Job job;
    const QString folder = BackupFolder(QFileInfo(r[u"to"].toString()).absoluteFilePath());
    const auto result = RunBackup(folder, r[u"path"].toString(), job);
    ShowMsg(result.refused.isEmpty() ? BackupText(result) : result.refused);
    if (!result.refused.isEmpty()) return Refusal({}, {});
    return {{u"ok"_s, true},
            {u"folder"_s, folder},
            {u"count"_s, result.count},
            {u"failed"_s, QJsonArray::fromStringList(result.failed)}};
}

}  // namespace

std::span<const Request> BookRequests() {
    using enum FieldType;
    static const Field path{u"path", text, true};
    static const Request requests[] = {
        {u"bookNew",
         {{u"name", text, true},
          {u"year", text},
          {u"note", text},
          {u"pass", text},
          {u"pass2", text},
          {u"reference", text},
          {u"referencePass", text},
          {u"kinds", flag},
          {u"accounts", flag}},
         AnswerBookNew},
        {u"reference", {{u"name", text, true}, {u"pass", text}}, AnswerReference},
        {u"bookChange",
         {path, {u"year", text}, {u"note", text}, {u"pass", text}, {u"pass2", text}, {u"oldPass", text}},
         AnswerBookChange},
        {u"bookZip", {path}, AnswerBookZip},
        {u"bookDelete", {path, {u"pass", text}}, AnswerBookDelete},
        {u"books", {}, AnswerBooks},
        {u"settings",
         {{u"split", number},
          {u"htmItems", number},
          {u"load", text},
          {u"agent", flag},
          {u"path", text},
          {u"webName", text},
          {u"webPass", text}},
         AnswerSettings},
        {u"places", {}, AnswerPlaces},
        {u"backup", {{u"path", text}, {u"to", text, true}}, AnswerBackup},
    };
    return requests;
}
