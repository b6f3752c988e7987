#include "web/code_page.h"

#include <QRegularExpression>
#include <QStringDecoder>
#include <QStringEncoder>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLookedAt = 1024;  // bytes of a page in which its own word stands

// The two older names are read as the code page that holds them both.
QByteArray CodecName(const QString& charset) {
    const QString name = charset.trimmed().toLower();
    if (name == u"gb2312" || name == u"gbk" || name == u"gb_2312-80" || name == u"x-gbk" || name == u"cp936")
        return "GB18030";
    return name.toLatin1();
}

bool IsKnown(const QString& charset) {
    return !charset.isEmpty() && QStringDecoder(CodecName(charset).constData()).isValid();
}

QString CharsetOfMark(const QByteArray& bytes) {
    if (bytes.startsWith("\xEF\xBB\xBF")) return u"utf-8"_s;
    if (bytes.startsWith("\xFF\xFE")) return u"utf-16le"_s;
    if (bytes.startsWith("\xFE\xFF")) return u"utf-16be"_s;
    return {};
}

QString CharsetOfWord(const QByteArray& bytes) {
    static const QRegularExpression meta(uR"(<meta[^>]*?charset\s*=\s*["']?\s*([\w.:-]+))"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    const QString told = meta.match(QString::fromLatin1(bytes.left(kLookedAt))).captured(1);
    // A page whose own word can be read is not of two bytes each.
    return told.startsWith(u"utf-16"_s, Qt::CaseInsensitive) ? u"utf-8"_s : told;
}

struct Decoding {
    QString text;
    bool good = false;
};

Decoding Decode(const QByteArray& bytes, const QString& charset) {
    QStringDecoder decoder(CodecName(charset).constData(), QStringDecoder::Flag::Stateless);
    Decoding done;
    done.text = decoder.decode(bytes);
    done.good = !decoder.hasError() && !done.text.contains(QChar::ReplacementCharacter);
    return done;
}

bool StandsAsItIs(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '*' ||
           c == '-' || c == '.' || c == '_';
}

QByteArray InForm(const QByteArray& bytes) {
    QByteArray out;
    for (const char c : bytes) {
        if (StandsAsItIs(c))
            out += c;
        else
            out += c == ' ' ? QByteArray("+") : '%' + QByteArray(1, c).toHex().toUpper();
    }
    return out;
}

class FormCodec {
 public:
    explicit FormCodec(const QString& charset)
        : encoder_(NameOf(charset).constData(), QStringEncoder::Flag::Stateless),
          // The older names have the characters of two bytes alone.
          old_(NameOf(charset) == "GB18030" && charset.compare(u"gb18030"_s, Qt::CaseInsensitive) != 0) {}

    QByteArray Encode(char32_t character) {
        const QString text = QString::fromUcs4(&character, 1);
        if (!encoder_.isValid()) return text.toUtf8();
        const QByteArray bytes = encoder_.encode(text);
        const bool unknown = encoder_.hasError() || (old_ && bytes.size() > 2);
        return unknown ? "&#" + QByteArray::number(static_cast<uint>(character)) + ';' : bytes;
    }

 private:
    static QByteArray NameOf(const QString& charset) {
        const QByteArray codec = CodecName(charset);
        return codec.isEmpty() || codec.startsWith("utf-16") ? QByteArray("utf-8") : codec;
    }

    QStringEncoder encoder_;
    bool old_;
};

}  // namespace

DecodedPage DecodePage(const QByteArray& bytes, const QString& headerCharset) {
    QString told = CharsetOfMark(bytes);
    if (!IsKnown(told)) told = headerCharset;
    if (!IsKnown(told)) told = CharsetOfWord(bytes);
    if (!IsKnown(told)) told = u"utf-8"_s;
    const auto first = Decode(bytes, told);
    if (first.good) return {first.text, told};
    for (const QString& other : {u"utf-8"_s, u"gb18030"_s})
        if (const auto again = Decode(bytes, other); again.good) return {again.text, other};
    return {first.text, told};
}

QString CharsetOfHeader(const QString& contentType) {
    static const QRegularExpression charset(uR"(;\s*charset\s*=\s*"?\s*([\w.:-]+))"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    return charset.match(contentType).captured(1);
}

QByteArray FormBytes(const QString& text, const QString& charset) {
    QString lines = text;
    lines.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').replace(u"\n"_s, u"\r\n"_s);
    QByteArray out;
    FormCodec codec(charset);
    for (const char32_t c : lines.toUcs4())
        out += c < 0x80 ? QByteArray(1, static_cast<char>(c)) : codec.Encode(c);
    return out;
}

QByteArray FormEncoded(const QString& text, const QString& charset) {
    return InForm(FormBytes(text, charset));
}

QByteArray AddressEncoded(const QString& text) {
    return text.toUtf8().toPercentEncoding({}, "-._~");
}
