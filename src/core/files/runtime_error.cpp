#include "core/files/runtime_error.h"

#include <optional>

namespace {

const char* TextOf(ErrorNumber number) {
    switch (number) {
        case ErrorNumber::None:
            return "";
        case ErrorNumber::InvalidCall:
            return "Invalid procedure call or argument";
        case ErrorNumber::Overflow:
            return "Overflow";
        case ErrorNumber::OutOfMemory:
            return "Out of memory";
        case ErrorNumber::SubscriptOutOfRange:
            return "Subscript out of range";
        case ErrorNumber::DivisionByZero:
            return "Division by zero";
        case ErrorNumber::TypeMismatch:
            return "Type mismatch";
        case ErrorNumber::OutOfStackSpace:
            return "Out of stack space";
        case ErrorNumber::BadFileNumber:
            return "Bad file name or number";
        case ErrorNumber::FileNotFound:
            return "File not found";
        case ErrorNumber::DeviceError:
            return "Device I/O error";
        case ErrorNumber::DiskFull:
            return "Disk full";
        case ErrorNumber::PastEndOfFile:
            return "Input past end of file";
        case ErrorNumber::PermissionDenied:
            return "Permission denied";
        case ErrorNumber::PathFileAccess:
            return "Path/File access error";
        case ErrorNumber::PathNotFound:
            return "Path not found";
        case ErrorNumber::ObjectNotSet:
            return "Object variable or With block variable not set";
        case ErrorNumber::DuplicateKey:
            return "This key is already associated with an element of this collection";
        case ErrorNumber::InvalidPicture:
            return "Invalid picture";
    }
    return "";
}

std::optional<CRuntimeError>& LastError() {
    static std::optional<CRuntimeError> error;
    return error;
}

}  // namespace

CRuntimeError::CRuntimeError(ErrorNumber number) : std::runtime_error(TextOf(number)), number_(number) {}

CRuntimeError::CRuntimeError(ErrorNumber number, const std::string& file)
    : std::runtime_error(TextOf(number) + ("\r\n" + file)), number_(number) {}

std::string CRuntimeError::Description() const {
    return TextOf(number_);
}

namespace MLastError {

void Remember(const CRuntimeError& error) {
    LastError() = error;
}

void Forget() {
    LastError().reset();
}

int Number() {
    return LastError() ? LastError()->Number() : 0;
}

std::string Description() {
    return LastError() ? LastError()->Description() : std::string();
}

}  // namespace MLastError

CRuntimeError CurrentRuntimeError() {
    try {
        throw;
    } catch (const CRuntimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return CRuntimeError(ErrorNumber::OutOfMemory);
    } catch (const std::length_error&) {
        return CRuntimeError(ErrorNumber::OutOfMemory);
    } catch (...) {
        return CRuntimeError(ErrorNumber::InvalidCall);
    }
}
