#pragma once
// What is typed into the window of a book, and the checks of it.

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// Which balances of the reference book go into a new one. Marks stand in the order in which the reference
/// holds its rows; what lies beyond them is not marked.
struct CarryChoice {
    bool kinds = false, accounts = false;
    std::vector<bool> kindMarks, accountMarks;
};

struct BookForm {
    QString name;
    QString year;
    QString note;
    QString pass, passAgain;
    bool moreOptions = false;
    QString reference;  ///< name of a book of the box, empty when none was chosen
    CarryChoice carry;
};

enum class BookField { none, name, pass };
struct BookComplaint {
    QString message;
    BookField focus = BookField::none;
};

/// What came of saving a form.
struct BookSaved {
    bool done = false;
    BookField focus = BookField::none;  ///< where a failed check wants the focus
    QString path = {};                  ///< of the book that was made or changed
};

/// What is wrong with the form; nullopt when nothing is. The name of a standing book is not checked.
std::optional<BookComplaint> CheckBookForm(const BookForm& form, bool isNew);
/// False when the name holds one of / \ : * ? > < | and the point.
bool IsNameAllowed(const QString& name);

/// The name as the book gets it: trimmed, in lower case.
QString BookNameOf(const QString& typed);
/// The file of a book of that name in the box; an empty name gives the box with a separator.
QString BoxPath(const QString& fileName);

/// Ten years before the present one to nine years after it.
QStringList OfferedYears();

/// Length of a file: "1.26 M". The unit grows beyond 1000.
QString SizeText(qint64 bytes);
