#pragma once

#include <QColor>
#include <QString>
#include <string>
#include <string_view>

/// What a page file says: its markup, without the BODY tag's attributes, and the colours that these asked for.
struct CPageText {
    QString html;
    QColor background = Qt::white;
    QColor text = Qt::black;
};

/// The browser's own bound on the length of a page; 10,000 units take a quarter of it.
inline constexpr std::int64_t kLargestPage = std::int64_t{32} << 20;

/// Decodes a page of the code page. Markup that comes with names and descriptions reaches the page as it is, so tags
/// that open deeper than any page needs are left out: laying them out could take for ever.
CPageText ReadPage(std::string_view bytes);

/// Reads a page file. One that is gone, or no regular file, gives an empty page; one that is too large, a page that
/// says so.
CPageText ReadPageFile(const std::string& path);
