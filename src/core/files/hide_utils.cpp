#include "core/files/hide_utils.h"

#include <optional>
#include <random>

#include "core/files/file_access.h"
#include "core/files/runtime_error.h"
#include "core/files/sequential.h"

namespace MHideUtils {

namespace {

constexpr std::string_view kKey =
    "q7h2vd0m9xk4t1sz8rb6yc3wg5jf0pn7la2eu9oi4hd8mq1xk6tv3zs5rb0"
    "yc7wg2jf9pn4la8eu1oi6hd3mq5xk0tv7zs2rb9yc4wg8jf1pn6la3eu5oi"
    "0hd7mq2xk9tv4zs8rb1yc6wg3jf5pn0l";
static_assert(kKey.size() == 150);

constexpr char kMarker = '\xA7';
constexpr int kOffset = 32;  // lifts every folded character above the control range

int Code(char c) {
    return static_cast<unsigned char>(c);
}

double RandomUnit() {
    static std::mt19937 engine{std::random_device{}()};
    return std::uniform_real_distribution<double>(0.0, 1.0)(engine);
}

// Folds one character after the other; the key runs out after 150 of them.
class CFolder {
  public:
    void Add(char value) {
        if (line_.size() >= kKey.size()) throw CRuntimeError(ErrorNumber::InvalidCall);
        const int folded = (Code(kKey[line_.size()]) ^ Code(value)) + kOffset;
        if (folded > 255) throw CRuntimeError(ErrorNumber::InvalidCall);
        line_ += static_cast<char>(folded);
    }
    void Pad(std::size_t length) {
        while (line_.size() < length)
            Add(RandomPadChar());
    }
    const std::string& Line() const { return line_; }

  private:
    std::string line_;
};

// Closes the output on every way out.
class COutput {
  public:
    explicit COutput(const std::string& path) : number_(MTextOutput::Open(path)) {}
    COutput(const COutput&) = delete;
    COutput& operator=(const COutput&) = delete;
    ~COutput() { MTextOutput::Abandon(number_); }
    std::int16_t Number() const { return number_; }

  private:
    std::int16_t number_;
};

}  // namespace

char RandomPadChar() {
    while (true) {
        const char c = static_cast<char>(static_cast<int>(RandomUnit() * 127 + 1));
        if (c != kMarker) return c;
    }
}

std::string EncodeLine(std::string_view line) {
    CFolder folder;
    if (line.size() <= kLongestLine) {
        const std::size_t room = kKey.size() - (line.size() + 1);
        folder.Pad(static_cast<std::size_t>(RandomUnit() * static_cast<double>(room)));
    }
    folder.Add(kMarker);
    for (const char c : line)
        folder.Add(c);
    folder.Add(kMarker);
    folder.Pad(kKey.size());
    return folder.Line();
}

std::string DecodeLine(std::string_view line) {
    std::string plain;
    bool inside = false;
    for (std::size_t p = 0; p < line.size() && p < kKey.size(); ++p) {
        const int folded = Code(line[p]) - kOffset;
        if (folded < 0) throw CRuntimeError(ErrorNumber::InvalidCall);
        const char c = static_cast<char>(folded ^ Code(kKey[p]));
        if (c == kMarker) {
            if (inside) break;
            inside = true;
        } else if (inside) {
            plain += c;
        }
    }
    return plain;
}

std::int16_t DecodeFile(const std::string& source, const std::string& target) {
    std::string content;
    if (!Trap([&] { return content = MFileAccess::ReadWholeFile(source), true; })) return 1;
    std::optional<COutput> output;
    if (!Trap([&] { return output.emplace(target), true; })) return 2;

    for (std::size_t at = 0; at < content.size();) {
        const std::size_t end = std::min(content.find('\r', at), content.size());
        const std::string line = DecodeLine(std::string_view(content).substr(at, end - at));
        if (!Trap([&] { return MTextOutput::Print(output->Number(), line), true; })) return 2;
        at = end + 1;
        if (at < content.size() && content[at] == '\n') ++at;
    }
    return Trap([&] { return MTextOutput::Close(output->Number()), true; }) ? 0 : 2;
}

}  // namespace MHideUtils
