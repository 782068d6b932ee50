#include "controls/ansi_qt.h"

#include <cstddef>
#include <cstdint>

#include "core/files/ansi_text.h"

namespace {

constexpr char16_t kEscaped = 0xDC00;  // plus the byte: a path byte that is no part of UTF-8

// Length of the well-formed UTF-8 sequence at `at`, 0 for none.
std::size_t SequenceLength(std::string_view bytes, std::size_t at) {
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); };
    const std::uint8_t lead = byte(at);
    std::size_t length = 0;
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead <= 0xDF) length = 2;
    if (lead >= 0xE0 && lead <= 0xEF) length = 3;
    if (lead >= 0xF0 && lead <= 0xF4) length = 4;
    if (length == 0 || at + length > bytes.size()) return 0;
    for (std::size_t i = at + 1; i < at + length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return 0;
    }
    const std::uint8_t second = byte(at + 1);
    const bool overlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
    const bool surrogate = lead == 0xED && second >= 0xA0;
    const bool tooLarge = lead == 0xF4 && second >= 0x90;
    return overlong || surrogate || tooLarge ? 0 : length;
}

char32_t Decode(std::string_view sequence) {
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(sequence[i]); };
    if (sequence.size() == 1) return byte(0);
    char32_t code = byte(0) & (0x7Fu >> sequence.size());
    for (std::size_t i = 1; i < sequence.size(); ++i)
        code = (code << 6) | (byte(i) & 0x3Fu);
    return code;
}

}  // namespace

QString FromAnsi(std::string_view text) {
    QString result;
    result.reserve(static_cast<qsizetype>(text.size()));
    for (const char c : text)
        result += QChar(static_cast<char16_t>(MAnsiText::ToUnicode(c)));
    return result;
}

std::string ToAnsi(const QString& text) {
    std::string result;
    result.reserve(static_cast<std::size_t>(text.size()));
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool pair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        result += pair ? '?' : MAnsiText::FromUnicode(text[i].unicode());
        if (pair) ++i;
    }
    return result;
}

QString FromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string ToUtf8(const QString& text) {
    return text.toUtf8().toStdString();
}

QString FromPath(std::string_view path) {
    QString result;
    result.reserve(static_cast<qsizetype>(path.size()));
    for (std::size_t i = 0; i < path.size();) {
        const std::size_t length = SequenceLength(path, i);
        if (length == 0) {
            result += QChar(static_cast<char16_t>(kEscaped + static_cast<std::uint8_t>(path[i])));
            ++i;
            continue;
        }
        const char32_t code = Decode(path.substr(i, length));
        result += QStringView(QChar::fromUcs4(code));
        i += length;
    }
    return result;
}

std::string ToPath(const QString& path) {
    std::string result;
    for (qsizetype i = 0; i < path.size(); ++i) {
        const char16_t unit = path[i].unicode();
        if (unit >= kEscaped + 0x80 && unit <= kEscaped + 0xFF) {
            result += static_cast<char>(unit - kEscaped);
            continue;
        }
        const bool pair = path[i].isHighSurrogate() && i + 1 < path.size() && path[i + 1].isLowSurrogate();
        result += path.mid(i, pair ? 2 : 1).toUtf8().toStdString();
        if (pair) ++i;
    }
    return result;
}

QString ForDisplay(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    for (QChar& c : text) {
        const char16_t code = c.unicode();
        if (code == '\r') c = u'\n';
        const bool control = code < 0x20 || (code >= 0x7F && code < 0xA0);
        if (control && code != '\n' && code != '\r') c = u' ';
    }
    return text;
}
