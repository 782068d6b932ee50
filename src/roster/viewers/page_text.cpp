#include "roster/viewers/page_text.h"

#include "controls/ansi_qt.h"
#include "core/files/file_access.h"
#include "core/files/runtime_error.h"
#include "roster/viewers/page_markup.h"

CPageText ReadPage(std::string_view bytes) {
    QString source = FromAnsi(bytes);
    source.replace(QChar(u'\0'), QChar(u' '));
    return RewriteMarkup(source);
}

CPageText ReadPageFile(const std::string& path) {
    CPageText tooLarge;
    tooLarge.html = QStringLiteral("<BODY>This page is too large to be shown here.</BODY>");
    try {
        if (MFileAccess::StampOf(path).size > kLargestPage) return tooLarge;
        return ReadPage(MFileAccess::ReadWholeFile(path, MFileAccess::Links::Refused));
    } catch (const CRuntimeError&) {
        return {};
    }
}
