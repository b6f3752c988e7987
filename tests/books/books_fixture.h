#pragma once
// A book box with an open book in it, and answers to its password questions.

#include "books/book_form.h"
#include "store/book_box.h"
#include "store/book_images.h"
#include "store/dialogs.h"
#include "store/session.h"
#include "tests/support/fault_vfs.h"
#include "tests/support/fixture.h"

#include <QDir>

/// Base is the fixture of the logic or of the windows.
template <class Base>
class BooksStage : public Base {
 protected:
    BooksStage() { UseBox(); }

    /// Makes the box that of the settings, and answers the password questions.
    void UseBox() {
        QDir().mkpath(Box());
        State().settings.sDBPath = Box();
        RegisterDialog(kDlgInput, [this](QPoint) {
            InputDialog input;
            asked_ << input.prompt;
            input.done = typed_.isNull() ? 0 : 1;
            input.text = typed_;
        });
    }
    QString Box() const { return this->Path(QStringLiteral("box")); }
    QString BookPath(const QString& name) const { return Box() + u'/' + name + QStringLiteral(".jotdb"); }

    /// Puts a book file into the box and knows it.
    QString PutBook(const QString& name, const QByteArray& image = SampleBookImage()) {
        this->PutFile(QStringLiteral("box/") + name + QStringLiteral(".jotdb"), image);
        KnowBooks();
        return BookPath(name);
    }
    /// The books of the box as at a start; the book that was open stays it.
    void KnowBooks() {
        const QString current = CurrentBook().Path;
        State().gBooks.assign(1, {});
        ScanBookBox(Box());
        ReadBookInfo();
        State().gCurBook = qMax(0, current.isEmpty() ? 0 : FindBook(current));
    }
    void OpenBook(const QString& name) {
        State().gCurBook = FindBook(BookPath(name));
        ReopenDB();
    }
    /// What is typed into the next password boxes; a null text cancels them.
    void Type(const QString& text) { typed_ = text; }
    const QStringList& Asked() const { return asked_; }

    static BookForm Form(const QString& name, const QString& year = QStringLiteral("2017")) {
        BookForm form;
        form.name = name;
        form.year = year;
        return form;
    }
    static QStringList Names() {
        QStringList names;
        for (const auto& book : State().gBooks)
            names << book.Name;
        return names;
    }

 private:
    QString typed_ = QStringLiteral("");
    QStringList asked_;
};

using BooksFixture = BooksStage<Fixture>;
