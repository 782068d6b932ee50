#pragma once

#include <QString>
#include <string>
#include <string_view>

/// The one place where the model's ANSI texts become the toolkit's texts and back. All 256 byte values survive the
/// trip.
QString FromAnsi(std::string_view text);
/// Characters that the code page lacks become "?".
std::string ToAnsi(const QString& text);

QString FromUtf8(std::string_view text);
std::string ToUtf8(const QString& text);

/// Paths are the platform's own bytes. Bytes that are no UTF-8 travel as lone surrogates, so that every path survives.
QString FromPath(std::string_view path);
std::string ToPath(const QString& path);

/// What a text looks like on the screen: CR LF is one line break, other control characters are blanks.
QString ForDisplay(QString text);
