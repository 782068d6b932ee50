#include "core/files/sequential.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <map>
#include <memory>

#include "core/files/ansi_text.h"
#include "core/files/file_access.h"
#include "core/files/number_text.h"
#include "core/files/runtime_error.h"

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

bool IsSeparator(char c) {
    return c == ',' || c == '\r' || c == '\n';
}

}  // namespace

CSequentialInput::CSequentialInput(const std::string& path) : content_(MFileAccess::ReadWholeFile(path)) {}

std::string CSequentialInput::ReadText() {
    if (AtEnd()) throw CRuntimeError(ErrorNumber::PastEndOfFile);
    while (!AtEnd() && IsBlank(content_[at_]))
        ++at_;

    std::string text;
    if (!AtEnd() && content_[at_] == '"') {
        const std::size_t close = std::min(content_.find('"', at_ + 1), content_.size());
        text = MAnsiText::OneLine(std::string_view(content_).substr(at_ + 1, close - at_ - 1));
        at_ = close;
        while (!AtEnd() && !IsSeparator(content_[at_]))
            ++at_;
    } else {
        const std::size_t begin = at_;
        while (!AtEnd() && !IsSeparator(content_[at_]))
            ++at_;
        text = content_.substr(begin, at_ - begin);
    }
    SkipSeparator();
    return text;
}

void CSequentialInput::SkipSeparator() {
    if (AtEnd()) return;
    const bool lineEnd = content_[at_] == '\r' && at_ + 1 < content_.size() && content_[at_ + 1] == '\n';
    at_ += lineEnd ? 2 : 1;
}

std::int16_t CSequentialInput::ReadInt16() {
    return MNumberText::RoundToInt16(ReadReal());
}

std::int32_t CSequentialInput::ReadInt32() {
    return MNumberText::RoundToInt32(ReadReal());
}

double CSequentialInput::ReadReal() {
    return MNumberText::ToReal(ReadText());
}

float CSequentialInput::ReadSingle() {
    return MNumberText::ToSingle(ReadReal());
}

bool CSequentialInput::SkipToTag(std::string_view tag) {
    while (!AtEnd()) {
        if (ReadTag(tag)) return true;
    }
    return false;
}

namespace MTextOutput {

namespace {

struct SOutput {
    std::string path;
    MFileAccess::CFilePtr file;
};

std::map<std::int16_t, SOutput>& OpenFiles() {
    static std::map<std::int16_t, SOutput> files;
    return files;
}

}  // namespace

std::int16_t Open(const std::string& path) {
    constexpr std::int16_t kHighest = 511;
    auto& files = OpenFiles();
    std::int16_t number = 1;
    while (files.contains(number))
        ++number;
    if (number > kHighest) throw CRuntimeError(ErrorNumber::BadFileNumber);
    files.emplace(number, SOutput{path, MFileAccess::OpenEmpty(path)});
    return number;
}

void Print(std::int16_t fileNumber, std::string_view text) {
    const auto found = OpenFiles().find(fileNumber);
    if (found == OpenFiles().end()) throw CRuntimeError(ErrorNumber::BadFileNumber);
    std::FILE* file = found->second.file.get();
    if (std::fwrite(text.data(), 1, text.size(), file) != text.size() || std::fwrite("\r\n", 1, 2, file) != 2) {
        MFileAccess::RaiseFor(errno, found->second.path);
    }
}

void Close(std::int16_t fileNumber) {
    const auto found = OpenFiles().find(fileNumber);
    if (found == OpenFiles().end()) throw CRuntimeError(ErrorNumber::BadFileNumber);
    SOutput output = std::move(found->second);
    OpenFiles().erase(found);
    if (std::fclose(output.file.release()) != 0) MFileAccess::RaiseFor(errno, output.path);
}

void Abandon(std::int16_t fileNumber) noexcept {
    OpenFiles().erase(fileNumber);
}

}  // namespace MTextOutput
