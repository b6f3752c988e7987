#include "store/row_texts.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>

namespace {

using Length = std::uint32_t;
constexpr size_t kHead = sizeof(Length);
constexpr size_t kUsualLine = 120;  // bytes of most lines, so that a block is asked for once

void PutLength(std::string& block, size_t at, size_t bytes) {
    const auto length = static_cast<Length>(bytes);
    std::memcpy(block.data() + at, &length, kHead);
}

size_t LengthAt(const std::string& block, size_t at) {
    Length length = 0;
    std::memcpy(&length, block.data() + at, kHead);
    return length;
}

/// Where the text at a place begins with its length; the end of the block when there is none.
size_t StartOf(const std::string& block, int place) {
    size_t at = 0;
    for (; place > 0 && at < block.size(); --place)
        at += kHead + LengthAt(block, at);
    return at;
}

/// Makes room for one text more; what is appended next belongs to it until its length is put.
size_t Begin(std::string& block) {
    if (block.empty()) block.reserve(kUsualLine);
    const size_t at = block.size();
    block.resize(at + kHead);
    return at;
}

}  // namespace

RowTexts::RowTexts(std::initializer_list<QString> texts) {
    for (const auto& text : texts)
        Add(text);
}

RowTexts::RowTexts(const QStringList& texts) {
    for (const auto& text : texts)
        Add(text);
}

RowTexts::RowTexts(const std::vector<QString>& texts) {
    for (const auto& text : texts)
        Add(text);
}

RowTexts& RowTexts::Add(QStringView text) {
    const auto isAscii = [](QChar c) { return c.unicode() < 0x80; };
    if (!std::ranges::all_of(text, isAscii)) return AddUtf8(text.toUtf8());
    const size_t at = Begin(block_);
    for (const QChar c : text)
        block_.push_back(static_cast<char>(c.unicode()));
    PutLength(block_, at, block_.size() - at - kHead);
    return *this;
}

RowTexts& RowTexts::AddNumber(qint64 number) {
    char digits[24];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
    return AddUtf8(QByteArrayView(digits, end - digits));
}

RowTexts& RowTexts::AddUtf8(std::initializer_list<QByteArrayView> pieces) {
    const size_t at = Begin(block_);
    for (const auto piece : pieces)
        block_.append(piece.data(), static_cast<size_t>(piece.size()));
    PutLength(block_, at, block_.size() - at - kHead);
    return *this;
}

void RowTexts::Set(int place, QStringView text) {
    for (int count = Count(); count <= place; ++count)
        AddUtf8({});
    const size_t at = StartOf(block_, place);
    const QByteArray bytes = text.toUtf8();
    block_.replace(at + kHead, LengthAt(block_, at), bytes.data(), static_cast<size_t>(bytes.size()));
    PutLength(block_, at, static_cast<size_t>(bytes.size()));
}

int RowTexts::Count() const {
    int count = 0;
    for (size_t at = 0; at < block_.size(); at += kHead + LengthAt(block_, at))
        ++count;
    return count;
}

QByteArrayView RowTexts::Utf8(int place) const {
    const size_t at = StartOf(block_, place);
    if (at >= block_.size()) return {};
    return {block_.data() + at + kHead, static_cast<qsizetype>(LengthAt(block_, at))};
}

QStringList RowTexts::All() const {
    QStringList texts;
    for (size_t at = 0; at < block_.size(); at += kHead + LengthAt(block_, at))
        texts << QString::fromUtf8(block_.data() + at + kHead, static_cast<qsizetype>(LengthAt(block_, at)));
    return texts;
}
