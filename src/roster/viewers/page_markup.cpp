#include "roster/viewers/page_markup.h"

#include <QSet>
#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t kDeepestTag = 100;
// The layout of a table within tables takes twice the time for each level.
constexpr std::size_t kDeepestTable = 3;
constexpr int kMostColumns = 100;
// Cells, rules, lines and paragraphs of a page: the longest page that is shown holds fewer of them in the makers' own
// rows.
constexpr std::int64_t kMostParts = 1'500'000;
constexpr std::int64_t kMostEmptyCells = 20'000;  // which spans and uneven rows leave open
constexpr qsizetype kLongestParagraph = 20'000;   // characters, or what takes as long to lay out
constexpr qsizetype kLongestCell = 40'000;        // likewise; the layout counts no further than a taller cell takes
constexpr qsizetype kWeightOfBreak = 100;         // of a line break or block, in characters
constexpr qsizetype kWeightOfPicture = 200;
constexpr qsizetype kMostFonts = 20;

enum Element : std::uint8_t { Inline = 0, Block = 1, Void = 2, Table = 4, Row = 8, Cell = 16, EndsItsLike = 32 };

struct SElement {
    QStringView name;
    std::uint8_t flags;
};

// By name.
constexpr std::array kElements = {
    SElement{u"a", Inline},
    SElement{u"b", Inline},
    SElement{u"big", Inline},
    SElement{u"blockquote", Block},
    SElement{u"br", Void},
    SElement{u"center", Block},
    SElement{u"cite", Inline},
    SElement{u"code", Inline},
    SElement{u"dd", Block | EndsItsLike},
    SElement{u"dfn", Inline},
    SElement{u"div", Block},
    SElement{u"dl", Block},
    SElement{u"dt", Block | EndsItsLike},
    SElement{u"em", Inline},
    SElement{u"font", Inline},
    SElement{u"h1", Block},
    SElement{u"h2", Block},
    SElement{u"h3", Block},
    SElement{u"h4", Block},
    SElement{u"h5", Block},
    SElement{u"h6", Block},
    SElement{u"hr", Block | Void},
    SElement{u"i", Inline},
    SElement{u"img", Void},
    SElement{u"kbd", Inline},
    SElement{u"li", Block | EndsItsLike},
    SElement{u"nobr", Inline},
    SElement{u"ol", Block},
    SElement{u"p", Block | EndsItsLike},
    SElement{u"pre", Block},
    SElement{u"s", Inline},
    SElement{u"samp", Inline},
    SElement{u"small", Inline},
    SElement{u"span", Inline},
    SElement{u"strong", Inline},
    SElement{u"sub", Inline},
    SElement{u"sup", Inline},
    SElement{u"table", Block | Table},
    SElement{u"td", Block | Cell},
    SElement{u"th", Block | Cell},
    SElement{u"tr", Block | Row},
    SElement{u"tt", Inline},
    SElement{u"u", Inline},
    SElement{u"ul", Block},
    SElement{u"var", Inline},
};

enum class AttributeKind { Text, Font, Number, Style };

struct SAttributeRule {
    QStringView name;
    AttributeKind kind;
    int most = 0;  // of a number
};

constexpr int kLongestSide = 20'000;  // pixels
constexpr std::array kAttributes = {
    SAttributeRule{u"align", AttributeKind::Text},
    SAttributeRule{u"alt", AttributeKind::Text},
    SAttributeRule{u"bgcolor", AttributeKind::Text},
    SAttributeRule{u"border", AttributeKind::Number, 50},
    SAttributeRule{u"cellpadding", AttributeKind::Number, 50},
    SAttributeRule{u"cellspacing", AttributeKind::Number, 50},
    SAttributeRule{u"color", AttributeKind::Text},
    SAttributeRule{u"face", AttributeKind::Font},
    SAttributeRule{u"height", AttributeKind::Number, kLongestSide},
    SAttributeRule{u"href", AttributeKind::Text},
    SAttributeRule{u"size", AttributeKind::Number, 7},
    SAttributeRule{u"src", AttributeKind::Text},
    SAttributeRule{u"start", AttributeKind::Number, 1'000'000},
    SAttributeRule{u"style", AttributeKind::Style},
    SAttributeRule{u"type", AttributeKind::Text},
    SAttributeRule{u"valign", AttributeKind::Text},
    SAttributeRule{u"width", AttributeKind::Number, kLongestSide},
};

// Those that change the look of a text and nothing else.
constexpr std::array kStyles = {u"color",       u"background-color", u"font-family",    u"font-style",
                                u"font-weight", u"text-align",       u"text-decoration"};

bool Same(QStringView a, QStringView b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

template <class TTable>
auto Find(const TTable& table, QStringView name) -> decltype(table.data()) {
    const auto found = std::lower_bound(table.begin(), table.end(), name, [](const auto& entry, QStringView wanted) {
        return entry.name.compare(wanted, Qt::CaseInsensitive) < 0;
    });
    return found != table.end() && Same(found->name, name) ? &*found : nullptr;
}

bool IsLetter(QChar c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

// The number that a text begins with, at most `most`.
int NumberIn(QStringView text, int most) {
    std::int64_t number = 0;
    for (const QChar c : text) {
        if (!IsDigit(c)) break;
        number = std::min<std::int64_t>(number * 10 + (c.unicode() - u'0'), most);
    }
    return static_cast<int>(number);
}

struct STag {
    QStringView name;
    bool closing = false;
    std::vector<std::pair<QStringView, QStringView>> attributes;

    QStringView Value(QStringView attribute) const {
        const auto found = std::find_if(attributes.begin(), attributes.end(),
                                        [attribute](const auto& pair) { return Same(pair.first, attribute); });
        return found != attributes.end() ? found->second : QStringView();
    }
};

class CTagReader {
  public:
    CTagReader(QStringView html, qsizetype at) : html_(html), at_(at) {}

    /// Where the reader stands: behind what it has read.
    qsizetype At() const { return at_; }
    /// Reads a comment or a declaration.
    bool SkipDeclaration() {
        if (!html_.mid(at_).startsWith(u"<!") && !html_.mid(at_).startsWith(u"<?")) return false;
        const bool comment = html_.mid(at_).startsWith(u"<!--");
        const qsizetype end = comment ? html_.indexOf(u"-->", at_ + 4) : html_.indexOf(u'>', at_);
        at_ = end < 0 ? html_.size() : end + (comment ? 3 : 1);
        return true;
    }
    /// Reads a tag; false where the "<" is plain text.
    bool Read(STag& tag) {
        qsizetype start = at_ + 1;
        tag.closing = start < html_.size() && html_[start] == u'/';
        if (tag.closing) ++start;
        if (start >= html_.size() || !IsLetter(html_[start])) return false;
        at_ = start;
        tag.name = Until([](QChar c) { return !IsLetter(c) && !IsDigit(c); });
        tag.attributes.clear();
        while (NextAttribute(tag)) {
        }
        if (at_ < html_.size()) ++at_;  // the ">"
        return true;
    }

  private:
    bool NextAttribute(STag& tag) {
        Until([](QChar c) { return !c.isSpace() && c != u'/' && c != u'=' && c != u'"' && c != u'\''; });
        if (at_ >= html_.size() || html_[at_] == u'>') return false;
        const QStringView name = Until([](QChar c) { return c.isSpace() || c == u'=' || c == u'/' || c == u'>'; });
        SkipBlanks();
        QStringView value;
        if (at_ < html_.size() && html_[at_] == u'=') {
            ++at_;
            SkipBlanks();
            const QChar quote = at_ < html_.size() ? html_[at_] : QChar();
            if (quote == u'"' || quote == u'\'') {
                ++at_;
                value = Until([quote](QChar c) { return c == quote; });
                if (at_ < html_.size()) ++at_;
            } else {
                value = Until([](QChar c) { return c.isSpace() || c == u'>'; });
            }
        }
        constexpr std::size_t kMostAttributes = 20;
        if (tag.attributes.size() < kMostAttributes) tag.attributes.emplace_back(name, value);
        return true;
    }
    void SkipBlanks() {
        Until([](QChar c) { return !c.isSpace(); });
    }
    template <class TIsEnd>
    QStringView Until(TIsEnd isEnd) {
        const qsizetype start = at_;
        while (at_ < html_.size() && !isEnd(html_[at_]))
            ++at_;
        return html_.mid(start, at_ - start);
    }

    QStringView html_;
    qsizetype at_;
};

// Puts the rewritten markup together.
class CMarkupWriter {
  public:
    explicit CMarkupWriter(qsizetype size) { result_.reserve(size + size / 8); }

    void Text(QStringView text);
    void Tag(const STag& tag) {
        if (Same(tag.name, u"body")) {
            if (!tag.closing && !std::exchange(inBody_, true)) TakeColours(tag);
        } else if (const SElement* element = Find(kElements, tag.name)) {
            tag.closing ? End(*element) : Begin(*element, tag);
        }
    }
    CPageText Result() {
        CloseDownTo(0);
        PassBlock();
        page_.html = std::move(result_);
        return std::move(page_);
    }

  private:
    // An open table. Its grid is at most as wide as its widest row with all cells that hang down from the rows above.
    struct STable {
        std::size_t depth = 0;  // of the table itself among what is open; its row and cell follow it
        std::int64_t rows = 0;
        std::int64_t lastRow = 0;  // to which a cell hangs down
        int columns = 0;           // of the row so far
        int widest = 0;
        int hanging = 0;
        std::int64_t cells = 0;  // written ones

        int Width() const { return widest + hanging; }
        std::int64_t Area() const { return std::max(rows, lastRow) * Width(); }
    };

    void Begin(const SElement& element, const STag& tag);
    void End(const SElement& element);
    void BeginCell(const SElement& element, const STag& tag);
    bool BeginRow();
    bool Count(std::int64_t parts) {
        if (parts > partsLeft_) return false;
        partsLeft_ -= parts;
        return true;
    }
    bool Grow(const STable& after);
    bool IsInCell() const { return tables_.empty() || open_.size() >= tables_.back().depth + 3; }
    void Open(const SElement& element, const STag& tag);
    void CloseDownTo(std::size_t depth);
    void Weigh(qsizetype weight);
    void PassBlock();
    void WriteAttributes(const SElement& element, const STag& tag);
    void WriteAttribute(QStringView name, QStringView value);
    void TakeColours(const STag& body);

    QString result_;
    CPageText page_;
    bool inBody_ = false;
    std::vector<const SElement*> open_;
    std::vector<STable> tables_;
    std::int64_t partsLeft_ = kMostParts;
    std::int64_t emptyCellsLeft_ = kMostEmptyCells;
    qsizetype paragraph_ = 0;  // weight of the paragraph so far
    qsizetype cell_ = 0;       // of the outermost cell
    QSet<QString> fonts_;
    // A line break before a block ends its line and no more, where this toolkit begins another line: a break that ends
    // a text is left out, and the last of those that stand alone becomes the empty line that it is.
    qsizetype break_ = -1;  // place of the last one, while nothing but tags has followed
    bool lineEmpty_ = true;
    bool cellEmpty_ = false;
};

constexpr QStringView kBreak = u"<br>";

// A paragraph is laid out as a whole, the slower the longer it is.
void CMarkupWriter::Weigh(qsizetype weight) {
    paragraph_ += weight;
    // What goes on behind that stands below the table.
    if (!tables_.empty() && (cell_ += weight) > kLongestCell) CloseDownTo(tables_.front().depth);
    if (paragraph_ <= kLongestParagraph || !Count(1)) return;
    result_ += u"<div></div>";
    paragraph_ = weight;
}

void CMarkupWriter::Text(QStringView text) {
    if (text.isEmpty()) return;
    if (!text.trimmed().isEmpty()) {
        // This toolkit would drop what stands in a table and in none of its cells.
        if (!IsInCell()) BeginCell(*Find(kElements, u"td"), {});
        cellEmpty_ = false;
        lineEmpty_ = false;
        break_ = -1;
    }
    while (!text.isEmpty()) {
        QStringView piece = text.left(kLongestParagraph);
        if (const qsizetype blank = piece.lastIndexOf(u' '); piece.size() < text.size() && blank >= 0)
            piece.truncate(blank + 1);
        Weigh(piece.size());
        result_ += piece;
        text = text.mid(piece.size());
    }
}

void CMarkupWriter::PassBlock() {
    if (break_ >= 0)
        result_.replace(break_, kBreak.size(), lineEmpty_ ? QStringLiteral("<div>&nbsp;</div>") : QString());
    break_ = -1;
    lineEmpty_ = true;
    paragraph_ = 0;
}

void CMarkupWriter::CloseDownTo(std::size_t depth) {
    while (open_.size() > depth) {
        const SElement& element = *open_.back();
        if ((element.flags & Block) != 0) PassBlock();
        if ((element.flags & Cell) != 0) {
            // This toolkit puts a rule that follows the table into a last cell that is empty.
            if (cellEmpty_) result_ += u"&nbsp;";
            cellEmpty_ = false;
        }
        result_ += u"</";
        result_ += element.name;
        result_ += u'>';
        open_.pop_back();
        if ((element.flags & Table) != 0) tables_.pop_back();
    }
}

void CMarkupWriter::Open(const SElement& element, const STag& tag) {
    if ((element.flags & Block) != 0) PassBlock();
    result_ += u'<';
    result_ += element.name;
    WriteAttributes(element, tag);
    result_ += u'>';
    if ((element.flags & Void) == 0) open_.push_back(&element);
}

void CMarkupWriter::Begin(const SElement& element, const STag& tag) {
    if ((element.flags & Cell) != 0) {
        BeginCell(element, tag);
        return;
    }
    if ((element.flags & Row) != 0) {
        BeginRow();
        return;
    }
    if (!IsInCell() || open_.size() >= kDeepestTag) return;
    if ((element.flags & EndsItsLike) != 0 && !open_.empty() && open_.back() == &element) {
        CloseDownTo(open_.size() - 1);
    }
    if ((element.flags & Table) != 0 && tables_.size() >= kDeepestTable) return;
    const bool isBreak = Same(element.name, u"br");
    if ((element.flags & Block) != 0) Weigh(kWeightOfBreak);
    if ((isBreak || (element.flags & Block) != 0) && !Count(1)) return;
    if (isBreak) {
        Weigh(kWeightOfBreak);
        break_ = result_.size();
        result_ += kBreak;
        return;
    }
    if (Same(element.name, u"img")) {
        Weigh(kWeightOfPicture);
        cellEmpty_ = lineEmpty_ = false;
        break_ = -1;
    }
    if ((element.flags & Table) != 0) tables_.push_back({open_.size()});
    Open(element, tag);
}

// Lets the innermost table grow to `after`; false where that would be more than a page needs.
bool CMarkupWriter::Grow(const STable& after) {
    STable& table = tables_.back();
    const std::int64_t area = after.Area() - table.Area();
    const std::int64_t empty = area - (after.cells - table.cells);
    if (after.Width() > kMostColumns || empty > emptyCellsLeft_ || !Count(std::max<std::int64_t>(area, 1)))
        return false;
    emptyCellsLeft_ -= empty;
    table = after;
    return true;
}

bool CMarkupWriter::BeginRow() {
    static const SElement& row = *Find(kElements, u"tr");
    if (tables_.empty()) return false;
    STable after = tables_.back();
    ++after.rows;
    after.columns = 0;
    if (!Grow(after)) return false;
    CloseDownTo(after.depth + 1);
    Open(row, {});
    return true;
}

void CMarkupWriter::BeginCell(const SElement& element, const STag& tag) {
    if (tables_.empty()) return;
    if (open_.size() < tables_.back().depth + 2 && !BeginRow()) return;
    const int wide = std::max(NumberIn(tag.Value(u"colspan"), kMostColumns), 1);
    const int high = std::max(NumberIn(tag.Value(u"rowspan"), kMostColumns), 1);
    STable after = tables_.back();
    ++after.cells;
    after.columns += wide;
    after.widest = std::max(after.widest, after.columns);
    after.lastRow = std::max(after.lastRow, after.rows + high - 1);
    if (high > 1) after.hanging += wide;
    if (!Grow(after)) return;
    CloseDownTo(after.depth + 2);
    Open(element, tag);
    cellEmpty_ = true;
    if (tables_.size() == 1) cell_ = 0;
}

void CMarkupWriter::End(const SElement& element) {
    if ((element.flags & Void) != 0) return;
    // Nothing in a cell ends what stands outside of it, but the end of the cell, its row and its table.
    const bool grid = (element.flags & (Table | Row | Cell)) != 0;
    const std::size_t bottom = tables_.empty() ? 0 : tables_.back().depth + (grid ? 0 : 3);
    for (std::size_t depth = open_.size(); depth > bottom; --depth) {
        if (open_[depth - 1] != &element) continue;
        CloseDownTo(depth - 1);
        return;
    }
}

void CMarkupWriter::WriteAttribute(QStringView name, QStringView value) {
    result_ += u' ';
    result_ += name;
    result_ += u"=\"";
    for (const QChar c : value)
        c == u'"' ? result_ += u"&quot;" : result_ += c;
    result_ += u'"';
}

// What remains of a style, in which nothing but names, numbers and colours is understood.
QString StyleOf(QStringView style) {
    QString result;
    for (const QStringView declaration : style.split(u';')) {
        const qsizetype colon = declaration.indexOf(u':');
        if (colon < 0) continue;
        const QStringView name = declaration.left(colon).trimmed();
        const QStringView value = declaration.mid(colon + 1).trimmed();
        const bool known =
            std::any_of(kStyles.begin(), kStyles.end(), [name](QStringView kept) { return Same(kept, name); });
        const bool plain = std::all_of(value.begin(), value.end(), [](QChar c) {
            return IsLetter(c) || IsDigit(c) || c == u'#' || c == u'-' || c == u' ' || c == u',';
        });
        if (known && plain) result.append(name).append(u':').append(value).append(u';');
    }
    return result;
}

void CMarkupWriter::WriteAttributes(const SElement& element, const STag& tag) {
    // An image or table that is aligned floats, and each of those is laid out around all others.
    const bool floats = (element.flags & Table) != 0 || Same(element.name, u"img");
    for (const auto& [name, value] : tag.attributes) {
        const SAttributeRule* rule = Find(kAttributes, name);
        if (rule == nullptr || value.isEmpty() || (floats && Same(name, u"align"))) continue;
        switch (rule->kind) {
            case AttributeKind::Text:
                WriteAttribute(rule->name, value);
                break;
            case AttributeKind::Font: {
                const QString font = value.toString().toLower();
                if (!fonts_.contains(font) && fonts_.size() >= kMostFonts) break;
                fonts_.insert(font);
                WriteAttribute(rule->name, value);
                break;
            }
            case AttributeKind::Number: {
                const bool isSigned = value[0] == u'+' || value[0] == u'-';
                const bool percent = value.endsWith(u'%');
                const int number = NumberIn(value.mid(isSigned ? 1 : 0), percent ? 100 : rule->most);
                const QString sign = isSigned && Same(name, u"size") ? QString(value[0]) : QString();
                WriteAttribute(rule->name,
                               sign + QString::number(number) + (percent ? QStringLiteral("%") : QString()));
                break;
            }
            case AttributeKind::Style:
                WriteAttribute(rule->name, StyleOf(value));
                break;
        }
    }
    if ((element.flags & Cell) != 0) {
        for (const QStringView span : {QStringView(u"colspan"), QStringView(u"rowspan")}) {
            const int cells = NumberIn(tag.Value(span), kMostColumns);
            if (cells > 1) WriteAttribute(span, QString::number(cells));
        }
    }
    // The columns of other browsers are as wide as the page says, the room around their content left out.
    if ((element.flags & Table) != 0 && tag.Value(u"cellspacing").isEmpty()) WriteAttribute(u"cellspacing", u"6");
}

void CMarkupWriter::TakeColours(const STag& body) {
    for (const auto& [name, into] : {std::pair(u"bgcolor", &page_.background), std::pair(u"text", &page_.text)}) {
        const QColor colour(body.Value(name).trimmed().toString());
        if (colour.isValid()) *into = colour;
    }
}

}  // namespace

CPageText RewriteMarkup(QStringView html) {
    CMarkupWriter writer(html.size());
    STag tag;
    qsizetype read = 0;
    for (qsizetype at = html.indexOf(u'<'); at >= 0; at = html.indexOf(u'<', read)) {
        writer.Text(html.mid(read, at - read));
        CTagReader reader(html, at);
        if (reader.SkipDeclaration()) {
            read = reader.At();
        } else if (reader.Read(tag)) {
            writer.Tag(tag);
            read = reader.At();
        } else {
            writer.Text(u"&lt;");
            read = at + 1;
        }
    }
    writer.Text(html.mid(read));
    return writer.Result();
}
