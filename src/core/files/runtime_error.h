#pragma once

#include <new>
#include <stdexcept>
#include <string>
#include <utility>

/// Numbers of the platform's run-time errors that this program raises.
enum class ErrorNumber {
    None = 0,
    InvalidCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    OutOfStackSpace = 28,
    BadFileNumber = 52,
    FileNotFound = 53,
    DeviceError = 57,
    DiskFull = 61,
    PastEndOfFile = 62,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
    ObjectNotSet = 91,
    DuplicateKey = 457,
    InvalidPicture = 481,
};

/// The one class that carries a run-time error: a number and the text that belongs to it. `what` is that text and,
/// where the number alone leaves a player at a loss, the path of the file behind it on a line of its own.
class CRuntimeError : public std::runtime_error {
  public:
    explicit CRuntimeError(ErrorNumber number);
    CRuntimeError(ErrorNumber number, const std::string& file);
    /// The same error, with the file that it is about.
    CRuntimeError About(const std::string& file) const { return {number_, file}; }

    int Number() const { return static_cast<int>(number_); }
    std::string Description() const;

  private:
    ErrorNumber number_;
};

/// The error that was trapped last, for messages that tell it. Forgotten when an event enters a form.
namespace MLastError {
void Remember(const CRuntimeError& error);
void Forget();
int Number();
std::string Description();
}  // namespace MLastError

/// Turns the exception being handled into a run-time error: anything that isn't one already becomes the nearest one
/// (memory that ran out, a size no container takes). Call it inside a catch block only.
CRuntimeError CurrentRuntimeError();

/// Runs `operation`, whose result is a flag; a run-time error inside it is remembered and makes the result false.
template <class Operation>
bool Trap(Operation&& operation) {
    try {
        return std::forward<Operation>(operation)();
    } catch (const std::exception&) {
        MLastError::Remember(CurrentRuntimeError());
        return false;
    }
}
