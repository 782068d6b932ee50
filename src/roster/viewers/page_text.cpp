#include "roster/viewers/page_text.h"

#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "controls/ansi_qt.h"
#include "core/files/file_access.h"
#include "core/files/runtime_error.h"

namespace {

// The layout of a table within tables takes twice the time for each level.
constexpr int kDeepestTable = 6;
constexpr std::size_t kDeepestTag = 500;

constexpr std::array kVoidTags = {u"br", u"hr", u"img", u"meta", u"link", u"input", u"col", u"base", u"area", u"wbr"};

constexpr std::array kBlockTags = {u"table", u"hr", u"h1", u"h2", u"h3", u"h4",  u"h5",  u"h6",   u"p",
                                   u"td",    u"th", u"tr", u"ul", u"ol", u"div", u"pre", u"body", u"html"};

struct STag {
    QStringView name;
    bool closing = false;
    qsizetype end = 0;  // behind the tag
};

bool IsLetter(QChar c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

// The tag that begins at `at`, where a "<" stands; false where it is plain text.
bool ReadTag(QStringView html, qsizetype at, STag& tag) {
    qsizetype i = at + 1;
    tag.closing = i < html.size() && html[i] == u'/';
    if (tag.closing) ++i;
    const qsizetype start = i;
    while (i < html.size() && (IsLetter(html[i]) || html[i].isDigit()))
        ++i;
    tag.name = html.mid(start, i - start);
    if (tag.name.isEmpty() || !IsLetter(tag.name[0])) return false;
    QChar quote;
    for (; i < html.size(); ++i) {
        if (!quote.isNull()) {
            if (html[i] == quote) quote = QChar();
        } else if (html[i] == u'"' || html[i] == u'\'') {
            quote = html[i];
        } else if (html[i] == u'>') {
            ++i;
            break;
        }
    }
    tag.end = i;
    return true;
}

bool Same(QStringView a, QStringView b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

class CTagDepth {
  public:
    /// False for a tag that opens too deep.
    bool Enter(const STag& tag) {
        const bool isTable = Same(tag.name, u"table");
        if (tag.closing) {
            const auto found =
                std::find_if(open_.rbegin(), open_.rend(), [&](QStringView name) { return Same(name, tag.name); });
            if (found == open_.rend()) return true;
            for (auto closed = open_.rbegin(); closed <= found; ++closed) {
                if (Same(*closed, u"table")) --tables_;
            }
            open_.resize(static_cast<std::size_t>(open_.rend() - found) - 1);
            return true;
        }
        if (std::any_of(kVoidTags.begin(), kVoidTags.end(), [&](QStringView name) { return Same(name, tag.name); })) {
            return true;
        }
        if (open_.size() >= kDeepestTag || (isTable && tables_ >= kDeepestTable)) return false;
        open_.push_back(tag.name);
        if (isTable) ++tables_;
        return true;
    }

  private:
    std::vector<QStringView> open_;
    int tables_ = 0;
};

// The markup with its changes, which are made in the order of their places.
class CMarkup {
  public:
    explicit CMarkup(QStringView html) : html_(html) { result_.reserve(html.size() + html.size() / 8); }

    void Replace(qsizetype from, qsizetype to, const QString& text) {
        result_ += html_.mid(copied_, from - copied_);
        result_ += text;
        copied_ = to;
    }
    QString Result() { return result_ += html_.mid(std::exchange(copied_, html_.size())); }

  private:
    QStringView html_;
    QString result_;
    qsizetype copied_ = 0;
};

// A line break before a block ends its line and no more, where this toolkit begins another line: a break that ends a
// text is left out, and the last of those that stand alone becomes the empty line that it is.
class CLineBreaks {
  public:
    void PassText(QStringView text) {
        if (text.trimmed().isEmpty()) return;
        cellEmpty_ = false;
        lineEmpty_ = false;
        break_ = -1;
    }
    void Forget() { break_ = -1; }
    void PassTag(const STag& tag, qsizetype at, CMarkup& markup) {
        if (Same(tag.name, u"br")) {
            break_ = at;
            breakEnd_ = tag.end;
            return;
        }
        if (Same(tag.name, u"img")) PassText(u"picture");
        if (std::none_of(kBlockTags.begin(), kBlockTags.end(),
                         [&](QStringView name) { return Same(name, tag.name); })) {
            return;
        }
        if (break_ >= 0)
            markup.Replace(break_, breakEnd_, lineEmpty_ ? QStringLiteral("<div>&nbsp;</div>") : QString());
        break_ = -1;
        lineEmpty_ = true;
        // This toolkit puts a rule that follows the table into a last cell that is empty.
        if (Same(tag.name, u"td") || Same(tag.name, u"th")) {
            if (tag.closing && cellEmpty_) markup.Replace(at, at, QStringLiteral("&nbsp;"));
            cellEmpty_ = !tag.closing;
        }
    }

  private:
    bool lineEmpty_ = true;
    bool cellEmpty_ = false;
    qsizetype break_ = -1;
    qsizetype breakEnd_ = -1;
};

// The columns of other browsers are as wide as the page says, the room around their content left out.
void Space(QStringView tag, qsizetype at, CMarkup& markup) {
    if (tag.contains(QStringLiteral("cellspacing"), Qt::CaseInsensitive)) return;
    constexpr qsizetype kName = 6;  // "<table"
    markup.Replace(at + kName, at + kName, QStringLiteral(" cellspacing=6"));
}

// Takes the colours from the attributes of the BODY tag.
void ReadColours(QStringView body, CPageText& page) {
    static const QRegularExpression attribute(QStringLiteral(R"re((\w+)\s*=\s*(?:"([^"]*)"|'([^']*)'|([^\s>]+)))re"));
    for (auto matches = attribute.globalMatch(body.toString()); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const QColor colour(match.captured(match.lastCapturedIndex()).trimmed());
        if (!colour.isValid()) continue;
        if (Same(match.capturedView(1), u"bgcolor")) page.background = colour;
        if (Same(match.capturedView(1), u"text")) page.text = colour;
    }
}

}  // namespace

CPageText ReadPage(std::string_view bytes) {
    QString source = FromAnsi(bytes);
    source.replace(QChar(u'\0'), QChar(u' '));

    CPageText page;
    const QStringView html(source);
    CMarkup markup(html);
    CTagDepth depth;
    CLineBreaks breaks;
    bool inBody = false;
    qsizetype read = 0;
    for (qsizetype at = html.indexOf(u'<'); at >= 0;) {
        STag tag;
        if (!ReadTag(html, at, tag)) {
            at = html.indexOf(u'<', at + 1);
            continue;
        }
        breaks.PassText(html.mid(read, at - read));
        read = tag.end;
        // The break that this tag turns into a mere line end stands before the tag, so it is changed first.
        breaks.PassTag(tag, at, markup);
        if (!inBody && !tag.closing && Same(tag.name, u"body")) {
            inBody = true;
            ReadColours(html.mid(at, tag.end - at), page);
            markup.Replace(at, tag.end, QStringLiteral("<BODY>"));
        } else if (!depth.Enter(tag)) {
            markup.Replace(at, tag.end, {});
            breaks.Forget();
        } else if (!tag.closing && Same(tag.name, u"table")) {
            Space(html.mid(at, tag.end - at), at, markup);
        }
        at = html.indexOf(u'<', tag.end);
    }
    page.html = markup.Result();
    return page;
}

CPageText ReadPageFile(const std::string& path) {
    CPageText tooLarge;
    tooLarge.html = QStringLiteral("<BODY>This page is too large to be shown here.</BODY>");
    try {
        if (MFileAccess::StampOf(path).size > kLargestPage) return tooLarge;
        return ReadPage(MFileAccess::ReadWholeFile(path));
    } catch (const CRuntimeError&) {
        return {};
    }
}
