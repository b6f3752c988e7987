#pragma once
// The texts of a line in a list.

#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <initializer_list>
#include <string>
#include <vector>

/// The texts of a line in one block of UTF-8, the form in which a book holds them. Ten thousand lines are ten
/// thousand blocks instead of a hundred thousand small texts.
class RowTexts {
 public:
    RowTexts() = default;
    RowTexts(std::initializer_list<QString> texts);
    RowTexts(const QStringList& texts);
    RowTexts(const std::vector<QString>& texts);

    RowTexts& Add(QStringView text);
    RowTexts& AddNumber(qint64 number);
    /// One text out of these pieces.
    RowTexts& AddUtf8(std::initializer_list<QByteArrayView> pieces);
    RowTexts& AddUtf8(QByteArrayView text) { return AddUtf8({text}); }
    /// Places before it that have no text yet become empty.
    void Set(int place, QStringView text);

    int Count() const;
    QString Text(int place) const { return QString::fromUtf8(Utf8(place)); }  ///< empty beyond the last
    QByteArrayView Utf8(int place) const;                                     ///< good until the next change
    QStringList All() const;
    bool operator==(const RowTexts&) const = default;

 private:
    std::string block_;  ///< of each text its length in bytes, four of them, and the text
};
