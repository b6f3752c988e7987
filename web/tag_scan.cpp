#include "web/tag_scan.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace {

using Names = QSet<QByteArray>;

// What a parser does grows with tags times levels.
constexpr qint64 kMostWork = 50'000'000;
// A parser compares each attribute of a tag with all before it.
constexpr int kMostAttributes = 500;
// What stands open is made anew in block after block, so each tag may become a dozen.
constexpr int kMostTags = 200'000;
// So many tags are safe at any depth.
constexpr int kSafeTags = 5000;

const Names kVoid{"area", "base",  "basefont", "bgsound", "br",   "col",   "embed",  "frame", "hr", "image",
                  "img",  "input", "keygen",   "link",    "meta", "param", "source", "track", "wbr"};
const Names kRawText{"script", "style", "textarea", "title", "xmp", "iframe", "noembed", "noframes"};
const Names kFormatting{"a",    "b", "big",   "code",   "em",     "font", "i",
                        "nobr", "s", "small", "strike", "strong", "tt",   "u"};
const Names kScopes{"table", "td", "th", "caption", "template", "object", "applet", "marquee"};
const Names kBlocks{"address", "article", "aside", "blockquote", "center", "div", "dl",  "fieldset",
                    "footer",  "form",    "h1",    "h2",         "h3",     "h4",  "h5",  "h6",
                    "header",  "li",      "main",  "nav",        "ol",     "p",   "pre", "section",
                    "table",   "ul",      "dd",    "dt",         "hr"};

/// A start tag that ends an open element of these names, when none of the borders lies between.
struct Closing {
    Names closes, borders;
};

const Closing* ClosingOf(const QByteArray& name) {
    static const Closing item{{"li"}, kScopes + Names{"ul", "ol"}};
    static const Closing term{{"dd", "dt"}, kScopes + Names{"dl"}};
    static const Closing option{{"option"}, kScopes + Names{"select"}};
    static const Closing group{{"option", "optgroup"}, kScopes + Names{"select"}};
    static const Closing cell{{"td", "th"}, {"table", "template"}};
    static const Closing row{{"td", "th", "tr", "caption"}, {"table", "template"}};
    static const Closing body{{"td", "th", "tr", "tbody", "thead", "tfoot", "caption"},
                              {"table", "template"}};
    static const QHash<QByteArray, const Closing*> rules{
        {"li", &item},        {"dd", &term},    {"dt", &term},   {"option", &option},
        {"optgroup", &group}, {"td", &cell},    {"th", &cell},   {"tr", &row},
        {"tbody", &body},     {"thead", &body}, {"tfoot", &body}};
    return rules.value(name, nullptr);
}

class Levels {
 public:
    void Open(const QByteArray& name, bool bare) {
        if (const auto* rule = ClosingOf(name)) CloseAll(*rule);
        static const Closing paragraph{{"p"}, kScopes + Names{"button"}};
        if (kBlocks.contains(name)) CloseAll(paragraph);
        if (kVoid.contains(name)) return;
        open_.push_back({name, bare});
        ++count_[name];
    }

    void Close(const QByteArray& name) {
        if (count_.value(name) == 0) {
            if (lost_.value(name) > 0) --lost_[name], --lostAll_;
            return;
        }
        const bool crosses = kScopes.contains(name) || name == "tr" || name == "tbody";
        for (auto at = open_.size(); at-- > 0;) {
            if (open_[at].name == name) return Cut(at, name);
            if (crosses ? open_[at].name == "table" || open_[at].name == "template"
                        : kScopes.contains(open_[at].name))
                return;
        }
    }

    int Depth() const { return static_cast<int>(open_.size()) + lostAll_; }

 private:
    struct Element {
        QByteArray name;
        bool bare;  ///< without attributes
    };

    void CloseAll(const Closing& rule) {
        bool found = true;
        while (found) {
            found = false;
            for (auto at = open_.size(); at-- > 0 && !rule.borders.contains(open_[at].name);)
                if (rule.closes.contains(open_[at].name)) {
                    Cut(at, open_[at].name);
                    found = true;
                    break;
                }
        }
    }

    // Formatting that was left open goes on behind the end of the block; of equal ones only three do.
    void Cut(size_t at, const QByteArray& ended) {
        const bool marks = kScopes.contains(ended);
        for (auto i = open_.size(); i-- > at;) {
            const auto& element = open_[i];
            --count_[element.name];
            const bool goesOn = i > at && !marks && kFormatting.contains(element.name);
            if (!goesOn || (element.bare && lost_.value(element.name) >= 3)) continue;
            ++lost_[element.name];
            ++lostAll_;
        }
        open_.resize(at);
    }

    std::vector<Element> open_;
    QHash<QByteArray, int> count_, lost_;
    int lostAll_ = 0;
};

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

struct TagEnd {
    qsizetype at = -1;  ///< place of the ">" that ends the attributes, -1 when there is none
    int attributes = 0;
};

/// Reads attributes as a parser does: a quote opens a value only as its first character, and a "=" in front
/// of a name belongs to it.
TagEnd EndOfTag(QByteArrayView html, qsizetype at) {
    enum { beforeName, inName, beforeValue, inValue } state = beforeName;
    TagEnd end;
    for (; at < html.size(); ++at) {
        const char c = html[at];
        if (c == '>') {
            end.at = at;
            return end;
        }
        if (IsSpace(c) || (c == '/' && state != inValue && state != beforeValue)) {
            if (state != beforeValue && !(state == inName && IsSpace(c))) state = beforeName;
            continue;
        }
        if (state == beforeValue && (c == '"' || c == '\'')) {
            at = html.indexOf(c, at + 1);
            if (at < 0) return end;
            state = beforeName;
        } else if (state == beforeValue) {
            state = inValue;
        } else if (state == inName && c == '=') {
            state = beforeValue;
        } else if (state == beforeName || (state == inName && IsSpace(html[at - 1]))) {
            ++end.attributes;
            state = inName;
        }
    }
    return end;
}

/// Behind the end tag of a raw text, -1 when there is none.
qsizetype EndOfRawText(QByteArrayView html, qsizetype at, const QByteArray& name) {
    for (at = html.indexOf("</", at); at >= 0; at = html.indexOf("</", at + 2)) {
        const auto end = at + 2 + name.size();
        if (end >= html.size()) return -1;
        const bool same = html.sliced(at + 2, name.size()).compare(name, Qt::CaseInsensitive) == 0;
        if (same && (IsSpace(html[end]) || html[end] == '>' || html[end] == '/')) {
            const auto close = EndOfTag(html, end).at;
            return close < 0 ? -1 : close + 1;
        }
    }
    return -1;
}

class Scan {
 public:
    explicit Scan(QByteArrayView html) : html_(html) {}

    TagScan Run() {
        for (qsizetype at = html_.indexOf('<'); at >= 0 && !found_.tooDeep; at = html_.indexOf('<', at)) {
            at = Pass(at);
            if (at < 0) {
                found_.cut = true;
                break;
            }
        }
        return std::move(found_);
    }

 private:
    // Behind what begins at the "<" here; -1 when it does not end.
    qsizetype Pass(qsizetype at) {
        const auto rest = html_.sliced(at);
        if (rest.startsWith("<!--")) {
            const auto end = html_.indexOf("-->", at + 2);
            return end < 0 ? -1 : end + 3;
        }
        if (rest.size() < 2) return -1;
        if (rest[1] == '!' || rest[1] == '?') {
            const auto end = html_.indexOf('>', at);
            return end < 0 ? -1 : end + 1;
        }
        const bool closes = rest[1] == '/';
        const qsizetype name = at + (closes ? 2 : 1);
        if (name >= html_.size()) return -1;
        return IsLetter(html_[name]) ? PassTag(at, name, closes) : name;
    }

    qsizetype PassTag(qsizetype at, qsizetype from, bool closes) {
        qsizetype to = from;
        while (to < html_.size() && !IsSpace(html_[to]) && html_[to] != '>' && html_[to] != '/')
            ++to;
        const auto [end, attributes] = EndOfTag(html_, to);
        if (end < 0) return -1;
        if (attributes > kMostAttributes) found_.tooDeep = true;
        const QByteArray name = html_.sliced(from, to - from).toByteArray().toLower();
        if (name == "form") found_.forms.push_back({at, !closes});
        if (!closes && kRawText.contains(name)) return EndOfRawText(html_, end + 1, name);
        if (closes)
            levels_.Close(name);
        else
            levels_.Open(name, end == to);
        Count();
        return end + 1;
    }

    void Count() {
        found_.deepest = std::max(found_.deepest, levels_.Depth());
        work_ += levels_.Depth() + 1;
        found_.tooDeep =
            found_.tooDeep || found_.deepest > kDeepestTags || work_ > kMostWork || ++tags_ > kMostTags;
    }

    QByteArrayView html_;
    TagScan found_;
    Levels levels_;
    qint64 work_ = 0;
    int tags_ = 0;
};

// Where text that is no markup elsewhere holds tags after all, or a comment ends otherwise, the scan and a
// parser may part ways.
bool MayDiffer(const QByteArray& lower) {
    for (const char* sign : {"<svg", "<math", "<select", "<frameset", "<plaintext", "--!>"})
        if (lower.contains(sign)) return true;
    const auto script = lower.indexOf("<script");
    return script >= 0 && lower.indexOf("<!--", script) >= 0;
}

qsizetype TagsAnywhere(QByteArrayView html) {
    qsizetype tags = 0;
    for (qsizetype at = html.indexOf('<'); at >= 0 && at + 1 < html.size(); at = html.indexOf('<', at + 1))
        if (IsLetter(html[at + 1])) ++tags;
    return tags;
}

}  // namespace

TagScan ScanTags(QByteArrayView html) {
    auto found = Scan(html).Run();
    if (TagsAnywhere(html) > kSafeTags && MayDiffer(html.toByteArray().toLower())) found.tooDeep = true;
    return found;
}
