#include "books/book_form.h"

#include "store/money.h"
#include "store/outside.h"
#include "store/paths.h"
#include "store/state.h"
#include "store/text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLongest = 20;
constexpr int kYearsBack = 10, kYears = 20;

std::optional<BookComplaint> CheckName(const QString& name) {
    const auto complain = [](const QString& text) { return BookComplaint{text, BookField::name}; };
    if (name.isEmpty()) return complain(u"账本名称不能为【空】!"_s);
    if (!IsNameAllowed(name))
        return complain(
            u"账本名称不合法, 不能含有以下符号：\r\n【<】、【>】、【|】、【?】、【.】、【*】、【:】、【/】、【\\】"_s);
    if (name.size() > kLongest) return complain(u"账本名称长度不能大于【20】!"_s);
    const auto& books = State().gBooks;
    const bool known = std::ranges::any_of(books, [&](const auto& book) { return book.Name == name; });
    if (known) return complain(u"【账本名称】已经存在!"_s);
    return {};
}

}  // namespace

std::optional<BookComplaint> CheckBookForm(const BookForm& form, bool isNew) {
    if (isNew)
        if (auto wrong = CheckName(BookNameOf(form.name))) return wrong;
    if (form.pass != form.passAgain) return BookComplaint{u"【两次口令】输入不一致!"_s, BookField::pass};
    if (form.pass.size() > kLongest) return BookComplaint{u"口令长度不能超过【20】!"_s, BookField::pass};
    return {};
}

bool IsNameAllowed(const QString& name) {
    static const QString forbidden = u"/\\:*?><|."_s;
    return std::ranges::none_of(name, [](QChar c) { return forbidden.contains(c); });
}

QString BookNameOf(const QString& typed) {
    return OneLine(typed).replace(u'\t', u' ').trimmed().toLower();
}

QString BoxPath(const QString& fileName) {
    const QChar separator = NativeStyle() == PathStyle::windows ? u'\\' : u'/';
    const QString& box = State().settings.sDBPath;
    return (box.endsWith(separator) ? box : box + separator) + fileName;
}

QStringList OfferedYears() {
    const int first = Outside().now().date().year() - kYearsBack;
    QStringList years;
    for (int i = 0; i < kYears; ++i)
        years << QString::number(first + i);
    return years;
}

QString SizeText(qint64 bytes) {
    double size = static_cast<double>(bytes) / 1024;
    QString unit = u"K"_s;
    for (const auto& next : {u"M"_s, u"G"_s}) {
        if (size <= 1000) break;
        size /= 1024;
        unit = next;
    }
    return MoneyText(size) + u' ' + unit;
}
