#include "web/page_reader.h"

#include "web/tag_scan.h"

#include <QHash>
#include <QSet>

#include <gumbo.h>
#include <map>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString kTooLong = u"网页太大"_s;
const QString kTooDeep = u"网页的层次太多"_s;

struct Closing {
    void operator()(GumboOutput* output) const {
        GumboOptions options = kGumboDefaultOptions;
        gumbo_destroy_output(&options, output);
    }
};
using Parsed = std::unique_ptr<GumboOutput, Closing>;

Parsed Parse(const QByteArray& html) {
    GumboOptions options = kGumboDefaultOptions;
    options.max_errors = 0;
    return Parsed(gumbo_parse_with_options(&options, html.constData(), static_cast<size_t>(html.size())));
}

QString WithBreaks(QString text, const QString& lineBreak) {
    text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    return lineBreak == u"\n" ? text : text.replace(u'\n', lineBreak);
}

const GumboAttribute* Find(const GumboNode* node, const char* name) {
    return gumbo_get_attribute(&node->v.element.attributes, name);
}

QString Attribute(const GumboNode* node, const char* name) {
    const auto* found = Find(node, name);
    return found ? QString::fromUtf8(found->value) : QString();
}

// The nodes below one in the order of the document, without recursion: a page's depth is not ours.
template <class Visit>
void Walk(const GumboNode* root, const Visit& visit) {
    std::vector<const GumboNode*> waiting{root};
    while (!waiting.empty()) {
        const auto* node = waiting.back();
        waiting.pop_back();
        visit(node);
        const GumboVector* children = nullptr;
        if (node->type == GUMBO_NODE_ELEMENT) children = &node->v.element.children;
        if (node->type == GUMBO_NODE_DOCUMENT) children = &node->v.document.children;
        for (unsigned i = children ? children->length : 0; i-- > 0;)
            waiting.push_back(static_cast<const GumboNode*>(children->data[i]));
    }
}

QString TextBelow(const GumboNode* root) {
    QString text;
    Walk(root, [&](const GumboNode* node) {
        const bool isText = node->type == GUMBO_NODE_TEXT || node->type == GUMBO_NODE_WHITESPACE ||
                            node->type == GUMBO_NODE_CDATA;
        if (isText) text += QString::fromUtf8(node->v.text.text);
    });
    return text;
}

bool IsElement(const GumboNode* node, GumboTag tag) {
    return node->type == GUMBO_NODE_ELEMENT && node->v.element.tag == tag;
}

QString InputType(const GumboNode* node) {
    static const QSet<QString> known{u"hidden"_s,         u"search"_s, u"tel"_s,    u"url"_s,   u"email"_s,
                                     u"password"_s,       u"date"_s,   u"month"_s,  u"week"_s,  u"time"_s,
                                     u"datetime-local"_s, u"number"_s, u"range"_s,  u"color"_s, u"checkbox"_s,
                                     u"radio"_s,          u"file"_s,   u"submit"_s, u"image"_s, u"reset"_s,
                                     u"button"_s};
    const QString type = Attribute(node, "type").toLower();
    return known.contains(type) ? type : u"text"_s;
}

bool IsOff(const GumboNode* option) {
    const auto* around = option->parent;
    return Find(option, "disabled") || (IsElement(around, GUMBO_TAG_OPTGROUP) && Find(around, "disabled"));
}

// What a list sends: all that say so in one of many; otherwise the last that says so, or in one that shows a
// single line the first that can be chosen.
QStringList Choices(const GumboNode* select) {
    const bool many = Find(select, "multiple");
    const bool singleLine = !many && Attribute(select, "size").toInt() <= 1;
    std::vector<const GumboNode*> chosen;
    const GumboNode* first = nullptr;
    Walk(select, [&](const GumboNode* node) {
        if (!IsElement(node, GUMBO_TAG_OPTION)) return;
        if (!first && !IsOff(node)) first = node;
        if (!Find(node, "selected")) return;
        if (!many) chosen.clear();
        chosen.push_back(node);
    });
    if (chosen.empty() && singleLine && first) chosen.push_back(first);
    QStringList values;
    for (const auto* node : chosen)
        if (!IsOff(node))
            values << (Find(node, "value") ? Attribute(node, "value") : TextBelow(node).simplified());
    return values;
}

QString MethodOf(const GumboNode* node, const char* attribute) {
    const QString told = Attribute(node, attribute).toLower();
    return told == u"post" || told == u"dialog" ? told : u"get"_s;
}

FormEncoding EncodingOf(const GumboNode* node, const char* attribute) {
    const QString told = Attribute(node, attribute).toLower();
    if (told == u"multipart/form-data") return FormEncoding::parts;
    return told == u"text/plain" ? FormEncoding::plain : FormEncoding::address;
}

PageElement ReadInput(const GumboNode* node) {
    PageElement element{.tag = u"INPUT"_s, .type = InputType(node), .name = {}, .value = {}};
    const bool ticks = element.type == u"checkbox" || element.type == u"radio";
    element.value = ticks && !Find(node, "value") ? u"on"_s : Attribute(node, "value");
    element.sends = !ticks || Find(node, "checked");
    return element;
}

PageElement ReadSelect(const GumboNode* node) {
    PageElement element{.tag = u"SELECT"_s,
                        .type = Find(node, "multiple") ? u"select-multiple"_s : u"select-one"_s,
                        .name = {},
                        .value = {},
                        .choices = Choices(node)};
    element.value = element.choices.value(0);
    element.sends = !element.choices.isEmpty();
    return element;
}

PageElement ReadButton(const GumboNode* node) {
    const QString type = Attribute(node, "type").toLower();
    return {.tag = u"BUTTON"_s,
            .type = type == u"reset" || type == u"button" ? type : u"submit"_s,
            .name = {},
            .value = Attribute(node, "value")};
}

class Reading {
 public:
    Reading(WebPage& page, const TagScan& scan, const QString& charset)
        : page_(page), scan_(scan), charset_(charset) {}

    void Take(const GumboNode* node) {
        if (node->type != GUMBO_NODE_ELEMENT) return;
        NoteId(node);
        switch (node->v.element.tag) {
            case GUMBO_TAG_BASE:
                if (page_.base.isEmpty()) page_.base = Attribute(node, "href").trimmed();
                return;
            case GUMBO_TAG_FORM:
                return TakeForm(node);
            case GUMBO_TAG_INPUT:
                return Add(node, ReadInput(node));
            case GUMBO_TAG_TEXTAREA:
                return Add(
                    node,
                    {.tag = u"TEXTAREA"_s, .type = u"textarea"_s, .name = {}, .value = TextBelow(node)});
            case GUMBO_TAG_SELECT:
                return Add(node, ReadSelect(node));
            case GUMBO_TAG_BUTTON:
                return Add(node, ReadButton(node));
            default:
                return;
        }
    }

    // An element belongs to the form that it names, otherwise to the one that stands open at its tag,
    // wherever the tree puts either of them.
    void SetForms() {
        std::map<qsizetype, int> formAt{{-1, -1}};
        qsizetype open = -1;
        for (const auto& mark : scan_.forms) {
            if (mark.begins && open >= 0) continue;
            open = mark.begins ? mark.offset : -1;
            formAt[mark.offset] = open < 0 ? -1 : formsByOffset_.value(open, -1);
        }
        for (size_t i = 0; i < page_.elements.size(); ++i)
            page_.elements[i].form = std::prev(formAt.upper_bound(offsets_[i]))->second;
        for (auto named = namedForms_.begin(); named != namedForms_.end(); ++named)
            page_.elements[named.key()].form = ids_.value(named.value(), -1);
        // Of ticked radio buttons with one name the last stays ticked.
        QHash<std::pair<int, QString>, size_t> ticked;
        for (const size_t i : radios_) {
            const auto& radio = page_.elements[i];
            const std::pair group{radio.form, radio.name};
            if (const auto before = ticked.find(group); before != ticked.end())
                page_.elements[before.value()].sends = false;
            ticked.insert(group, i);
        }
    }

 private:
    void NoteId(const GumboNode* node) {
        const QString id = Attribute(node, "id");
        if (id.isEmpty() || ids_.contains(id)) return;
        ids_.insert(id, IsElement(node, GUMBO_TAG_FORM) ? static_cast<int>(page_.forms.size()) : -1);
    }

    // By itself or by a set of fields around it, whose first legend goes free. What stands in a list of
    // suggestions is sent no more than what is disabled.
    bool IsDisabled(const GumboNode* node) {
        if (Find(node, "disabled")) return true;
        for (const auto* around = node->parent; around; node = around, around = around->parent) {
            if (IsElement(around, GUMBO_TAG_DATALIST)) return true;
            if (IsElement(around, GUMBO_TAG_FIELDSET) && Find(around, "disabled") && node != Legend(around))
                return true;
        }
        return false;
    }

    const GumboNode* Legend(const GumboNode* fieldset) {
        const auto known = legends_.constFind(fieldset);
        if (known != legends_.constEnd()) return known.value();
        const GumboNode* first = nullptr;
        const auto& children = fieldset->v.element.children;
        for (unsigned i = 0; i < children.length && !first; ++i)
            if (const auto* child = static_cast<const GumboNode*>(children.data[i]);
                IsElement(child, GUMBO_TAG_LEGEND))
                first = child;
        return legends_.insert(fieldset, first).value();
    }

    void TakeForm(const GumboNode* node) {
        const QString told = Attribute(node, "accept-charset").section(u' ', 0, 0, QString::SectionSkipEmpty);
        page_.forms.push_back({.action = Attribute(node, "action").trimmed(),
                               .method = MethodOf(node, "method"),
                               .charset = told.isEmpty() ? charset_ : told,
                               .encoding = EncodingOf(node, "enctype")});
        formsByOffset_.insert(OffsetOf(node), static_cast<int>(page_.forms.size()) - 1);
    }

    void Add(const GumboNode* node, PageElement&& element) {
        element.name = Attribute(node, "name");
        element.value = WithBreaks(element.value, u"\r\n"_s);
        for (auto& choice : element.choices)
            choice = WithBreaks(choice, u"\r\n"_s);
        if (Find(node, "formaction")) element.action = Attribute(node, "formaction").trimmed();
        if (Find(node, "formmethod")) element.method = MethodOf(node, "formmethod");
        if (Find(node, "formenctype")) element.encoding = EncodingOf(node, "formenctype");
        const size_t index = page_.elements.size();
        if (Find(node, "form")) namedForms_.insert(index, Attribute(node, "form"));
        if (element.type == u"radio" && element.sends) radios_.push_back(index);
        element.sends = element.sends && !IsDisabled(node);
        page_.elements.push_back(std::move(element));
        offsets_.push_back(OffsetOf(node));
    }

    static qsizetype OffsetOf(const GumboNode* node) { return node->v.element.start_pos.offset; }

    WebPage& page_;
    const TagScan& scan_;
    QString charset_;
    std::vector<qsizetype> offsets_;
    QHash<qsizetype, int> formsByOffset_;
    QHash<QString, int> ids_;            ///< the form that an id names first, -1 for another element
    QHash<size_t, QString> namedForms_;  ///< by the element that names one
    std::vector<size_t> radios_;         ///< ticked ones
    QHash<const GumboNode*, const GumboNode*> legends_;
};

}  // namespace

WebPage ReadPageText(const DecodedPage& decoded) {
    WebPage page;
    const QByteArray html = WithBreaks(decoded.text, u"\n"_s).toUtf8();
    const auto scan = ScanTags(html);
    page.cut = scan.cut;
    if (scan.tooDeep) {
        page.fault = kTooDeep;
        return page;
    }
    const auto parsed = Parse(html);
    Reading reading(page, scan, decoded.charset);
    Walk(parsed->document, [&](const GumboNode* node) { reading.Take(node); });
    reading.SetForms();
    return page;
}

WebPage ReadPage(const QByteArray& bytes, const QString& charset) {
    if (bytes.size() > kLargestPage) return {.fault = kTooLong, .base = {}, .elements = {}, .forms = {}};
    return ReadPageText(DecodePage(bytes, charset));
}
