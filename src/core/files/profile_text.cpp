#include "core/files/profile_text.h"

#include <utility>

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

struct SLine {
    std::size_t begin;
    std::size_t end;   // without the terminator
    std::size_t next;  // first byte of the following line
};

// A line ends at CR LF, CR or LF.
SLine LineAt(const std::string& text, std::size_t begin) {
    std::size_t end = begin;
    while (end < text.size() && text[end] != '\n' && text[end] != '\r')
        ++end;
    std::size_t next = end;
    if (next < text.size()) next += text[next] == '\r' && next + 1 < text.size() && text[next + 1] == '\n' ? 2 : 1;
    return {begin, end, next};
}

bool IsBlankLine(const std::string& text, const SLine& line) {
    return Trimmed(std::string_view(text).substr(line.begin, line.end - line.begin)).empty();
}

// The name between the brackets of a header line, or nothing for any other line.
std::optional<std::string_view> HeaderName(std::string_view line) {
    line = Trimmed(line);
    if (line.empty() || line.front() != '[') return std::nullopt;
    line.remove_prefix(1);
    return Trimmed(line.substr(0, line.find(']')));
}

}  // namespace

CProfileText::CProfileText(std::string text) : text_(std::move(text)) {
    IndexSections(0);
}

void CProfileText::IndexSections(std::size_t from) {
    for (std::size_t at = from; at < text_.size();) {
        const SLine line = LineAt(text_, at);
        if (const auto name = HeaderName(std::string_view(text_).substr(line.begin, line.end - line.begin))) {
            if (!sections_.empty()) sections_.back().end = line.begin;
            sectionsByName_.try_emplace(std::string(*name), sections_.size());
            sections_.push_back({line.next, line.next});
        }
        at = line.next;
    }
    if (!sections_.empty()) sections_.back().end = text_.size();
}

bool CProfileText::OpenSection(std::string_view section) {
    if (open_ != kNone && openName_ == section) return true;
    const auto found = sectionsByName_.find(Trimmed(section));
    if (found == sectionsByName_.end()) return false;
    openName_ = section;
    if (open_ != found->second) {
        open_ = found->second;
        keys_.clear();
        keysReadTo_ = sections_[open_].begin;
    }
    return true;
}

const CProfileText::SKeyLine* CProfileText::FindKey(std::string_view key) {
    const SSection& section = sections_[open_];
    while (keysReadTo_ < section.end) {
        const SLine line = LineAt(text_, keysReadTo_);
        keysReadTo_ = line.next;
        const std::string_view all = std::string_view(text_).substr(line.begin, line.end - line.begin);
        const std::size_t equals = all.find('=');
        if (equals == std::string_view::npos) continue;
        const std::string_view name = Trimmed(all.substr(0, equals));
        if (name.starts_with(';')) continue;
        keys_.push_back({line.begin, static_cast<std::size_t>(name.data() - text_.data()), name.size(),
                         line.begin + equals + 1, line.end});
    }
    key = Trimmed(key);
    for (const SKeyLine& line : keys_) {
        if (line.keyLength == key.size() &&
            MAnsiText::EqualIgnoreCase(std::string_view(text_).substr(line.key, line.keyLength), key)) {
            return &line;
        }
    }
    return nullptr;
}

std::optional<std::string_view> CProfileText::Find(std::string_view section, std::string_view key) {
    if (!OpenSection(section)) return std::nullopt;
    const SKeyLine* line = FindKey(key);
    if (line == nullptr) return std::nullopt;
    std::string_view value = Trimmed(std::string_view(text_).substr(line->value, line->valueEnd - line->value));
    if (value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'')) {
        value = value.substr(1, value.size() - 2);
    }
    return value;
}

void CProfileText::Set(std::string_view section, std::string_view key, std::string_view value) {
    std::string line(key);
    line.append("=").append(value).append("\r\n");

    if (!OpenSection(section)) {
        std::string header = text_.empty() || text_.ends_with('\n') ? "" : "\r\n";
        header.append("[").append(section).append("]\r\n");
        Append(header + line);
        return;
    }
    if (const SKeyLine* former = FindKey(key)) {
        line.replace(0, key.size(), text_, former->key, former->keyLength);
        Replace(former->line, LineAt(text_, former->line).next - former->line, line);
        return;
    }
    const std::size_t position = EndOfContent(sections_[open_]);
    if (position > 0 && text_[position - 1] != '\n' && text_[position - 1] != '\r') line.insert(0, "\r\n");
    if (position == text_.size()) {
        Append(line);
    } else {
        Replace(position, 0, line);
    }
}

// New keys go in front of the blank lines that set a section off from the next.
std::size_t CProfileText::EndOfContent(const SSection& section) const {
    if (section.end == text_.size() && text_.ends_with("\r\n")) {
        // What a save meets each time: the section is the last one and ends with a key.
        const std::size_t lastByte = text_.size() - 3;
        if (text_.size() > 2 && text_[lastByte] != '\n' && text_[lastByte] != '\r' && !IsBlank(text_[lastByte])) {
            return text_.size();
        }
    }
    std::size_t end = section.begin;
    for (std::size_t at = section.begin; at < section.end;) {
        const SLine line = LineAt(text_, at);
        if (!IsBlankLine(text_, line)) end = line.next;
        at = line.next;
    }
    return end;
}

void CProfileText::Replace(std::size_t position, std::size_t length, std::string_view replacement) {
    text_.replace(position, length, replacement);
    sections_.clear();
    sectionsByName_.clear();
    open_ = kNone;
    keys_.clear();
    IndexSections(0);
}

void CProfileText::Append(std::string_view addition) {
    const std::size_t from = text_.size();
    text_.append(addition);
    IndexSections(from);
}
