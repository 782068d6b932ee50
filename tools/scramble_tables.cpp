// Turns the plain form of the rule tables into the scrambled support file. Run by the build.

#include <exception>
#include <iostream>
#include <string>

#include "core/files/file_access.h"
#include "core/files/hide_utils.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: scramble_tables <plain file> <scrambled file>\n";
        return 2;
    }
    try {
        const std::string plain = MFileAccess::ReadWholeFile(argv[1]);
        std::string scrambled;
        for (std::size_t at = 0, line = 1; at < plain.size(); ++line) {
            std::size_t end = plain.find("\r\n", at);
            if (end == std::string::npos) end = plain.size();
            if (end - at > MHideUtils::kLongestLine) {
                std::cerr << argv[1] << ":" << line << ": longer than " << MHideUtils::kLongestLine << " characters\n";
                return 1;
            }
            scrambled += MHideUtils::EncodeLine(plain.substr(at, end - at)) + "\r\n";
            at = end + 2;
        }
        MFileAccess::ReplaceFile(argv[2], scrambled);
    } catch (const std::exception& error) {
        std::cerr << argv[1] << ": " << error.what() << "\n";
        return 1;
    }
    return 0;
}
