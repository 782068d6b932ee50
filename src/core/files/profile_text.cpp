#include "core/files/profile_text.h"

#include <algorithm>
#include <utility>

#include "core/files/ansi_text.h"

namespace {

// Around names and values alike. Line ends never get here.
bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\v' || c == '\f';
}

bool IsLetterOrDigit(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
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

std::string KeyLine(std::string_view key, std::string_view value) {
    std::string line(key);
    return line.append("=").append(value).append("\r\n");
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
        if (const auto name = HeaderName(Part(line.begin, line.end - line.begin))) {
            if (lastReachesEnd_) sections_.back().end = line.begin;
            lastReachesEnd_ = false;
            AddSection(*name, line.next);
        }
        at = line.next;
    }
    if (lastReachesEnd_) sections_.back().end = text_.size();
}

// The slot of a section, or the free one where it belongs.
CProfileText::SSlot& CProfileText::SlotOf(std::string_view name) {
    constexpr std::size_t kFewest = 64;
    if (slots_.empty()) slots_.resize(kFewest);
    const auto hash = static_cast<std::uint32_t>(MAnsiText::HashIgnoreCase()(name));
    const std::size_t mask = slots_.size() - 1;  // the size is a power of two
    for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
        SSlot& slot = slots_[at];
        if (slot.number == 0) return slot = {hash, 0};
        if (slot.hash != hash) continue;
        const SSection& section = sections_[slot.number - 1];
        if (MAnsiText::EqualIgnoreCase(Part(section.name, section.nameLength), name)) return slot;
    }
}

// `name` is a part of the text. A second section of a name is passed over.
void CProfileText::AddSection(std::string_view name, std::size_t begin) {
    SSlot& slot = SlotOf(name);
    if (slot.number != 0) return;
    sections_.push_back({static_cast<std::size_t>(name.data() - text_.data()), name.size(), begin, begin});
    slot.number = static_cast<std::uint32_t>(sections_.size());
    lastReachesEnd_ = true;
    if (sections_.size() * 2 > slots_.size()) GrowSlots();
}

void CProfileText::GrowSlots() {
    std::vector<SSlot> former(slots_.size() * 4);
    former.swap(slots_);
    const std::size_t mask = slots_.size() - 1;
    for (const SSlot& slot : former) {
        if (slot.number == 0) continue;
        std::size_t at = slot.hash & mask;
        while (slots_[at].number != 0)
            at = (at + 1) & mask;
        slots_[at] = slot;
    }
}

bool CProfileText::OpenSection(std::string_view section) {
    if (open_ != kNone && openName_ == section) return true;
    const std::uint32_t number = SlotOf(Trimmed(section)).number;
    if (number == 0) return false;
    const std::size_t found = number - 1;
    openName_ = section;
    if (open_ != found) {
        open_ = found;
        keys_.clear();
        keysReadTo_ = sections_[open_].begin;
    }
    return true;
}

// The key line at a position, which moves on to the next line; nothing for a line without a key.
std::optional<CProfileText::SKeyLine> CProfileText::KeyLineAt(std::size_t& at) const {
    const SLine line = LineAt(text_, at);
    at = line.next;
    const std::string_view all = Part(line.begin, line.end - line.begin);
    const std::size_t equals = all.find('=');
    if (equals == std::string_view::npos) return std::nullopt;
    const std::string_view name = Trimmed(all.substr(0, equals));
    if (name.starts_with(';')) return std::nullopt;
    return SKeyLine{line.begin, static_cast<std::size_t>(name.data() - text_.data()), name.size(),
                    line.begin + equals + 1, line.end};
}

std::optional<CProfileText::SKeyLine> CProfileText::FindKey(std::string_view key) {
    key = Trimmed(key);
    const auto matches = [&](const SKeyLine& line) {
        return line.keyLength == key.size() && MAnsiText::EqualIgnoreCase(Part(line.key, line.keyLength), key);
    };
    for (const SKeyLine& line : keys_) {
        if (matches(line)) return line;
    }
    for (std::size_t at = keysReadTo_; at < sections_[open_].end;) {
        const std::optional<SKeyLine> line = KeyLineAt(at);
        if (keys_.size() < kRemembered) {
            keysReadTo_ = at;
            if (line) keys_.push_back(*line);
        }
        if (line && matches(*line)) return line;
    }
    return std::nullopt;
}

std::optional<std::string_view> CProfileText::Find(std::string_view section, std::string_view key) {
    if (!OpenSection(section)) return std::nullopt;
    const std::optional<SKeyLine> line = FindKey(key);
    if (!line) return std::nullopt;
    std::string_view value = Trimmed(Part(line->value, line->valueEnd - line->value));
    if (value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'')) {
        value = value.substr(1, value.size() - 2);
    }
    return value;
}

void CProfileText::Set(std::string_view section, std::string_view key, std::string_view value) {
    if (!OpenSection(section)) {
        std::string header = text_.empty() || text_.ends_with('\n') ? "[" : "\r\n[";
        Append(header.append(section).append("]\r\n"));
        if (!OpenSection(section)) return Append(KeyLine(key, value));  // a name that the header doesn't give back
    }
    if (const std::optional<SKeyLine> former = FindKey(key)) {
        const std::string name(Part(former->key, former->keyLength));
        Replace(former->line, LineAt(text_, former->line).next - former->line, KeyLine(name, value));
        return;
    }
    const std::size_t position = EndOfContent(sections_[open_]);
    const bool behindLine = position == 0 || text_[position - 1] == '\n' || text_[position - 1] == '\r';
    if (behindLine && position == text_.size()) {
        AppendKey(key, value);
    } else {
        Replace(position, 0, (behindLine ? "" : "\r\n") + KeyLine(key, value));
    }
}

// At the end of the text. What is written there is one more key of the last section, unless it is odd.
void CProfileText::AppendKey(std::string_view key, std::string_view value) {
    const auto isPlain = [](char c) { return c != '\r' && c != '\n'; };
    const bool plain = !key.empty() && std::all_of(key.begin(), key.end(), IsLetterOrDigit) &&
                       std::all_of(value.begin(), value.end(), isPlain);
    if (!plain || open_ + 1 != sections_.size() || keysReadTo_ != text_.size() || keys_.size() >= kRemembered) {
        return Append(KeyLine(key, value));
    }
    const std::size_t begin = text_.size();
    text_.append(key).append("=").append(value);
    keys_.push_back({begin, begin, key.size(), begin + key.size() + 1, text_.size()});
    text_.append("\r\n");
    keysReadTo_ = text_.size();
    sections_.back().end = text_.size();
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
    lastReachesEnd_ = false;
    slots_.clear();
    open_ = kNone;
    keys_.clear();
    IndexSections(0);
}

void CProfileText::Append(std::string_view addition) {
    const std::size_t from = text_.size();
    text_.append(addition);
    IndexSections(from);
}
