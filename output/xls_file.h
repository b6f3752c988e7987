#pragma once
// A spreadsheet file of the old format (BIFF8, [MS-XLS]) with one sheet: texts, numbers, widths, bold,
// alignment, number formats.

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

enum class XlsSide { general, centre, right };

struct XlsStyle {
    bool bold = false;
    XlsSide side = XlsSide::general;
    QString format = {};  ///< such as "#,##0.00"; empty is the general one

    bool operator==(const XlsStyle&) const = default;
};

class XlsSheet {
 public:
    static constexpr int kMostRows = 65536;
    static constexpr int kMostCharacters = 32767;  ///< of a cell; what is longer is cut and marked so

    /// Width of a column in characters of the usual font.
    void SetWidth(int column, double characters);
    // Cells are added row by row, from left to right. Rows and columns count from 0.
    void AddText(int row, int column, const QString& text, const XlsStyle& style = {});
    void AddNumber(int row, int column, double value, const XlsStyle& style = {});
    /// The bytes of the whole file.
    QByteArray File() const;

 private:
    void AddCell(quint32 record, int row, int column, const XlsStyle& style, const QByteArray& value);
    QByteArray Globals(quint32 sheetAt) const;
    QByteArray Strings() const;
    void AddSheet(QByteArray& bytes) const;

    std::vector<double> widths_;
    std::vector<XlsStyle> styles_{{}};
    QStringList texts_;
    QHash<QString, quint32> textNumbers_;
    quint32 textCells_ = 0;
    QByteArray cells_;
    int rows_ = 0, columns_ = 0;
};
