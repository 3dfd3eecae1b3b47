// The one way in which an operation of the platform or of the logic fails.
#pragma once

#include <stdexcept>
#include <string>

namespace td {

// Numbers of the failures that the logic itself raises or tells apart. A platform may use others.
enum FailureNumber : int {
  kInvalidCall = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kDivisionByZero = 11,
  kTypeMismatch = 13,
  kFileNotFound = 53,
  kDeviceIo = 57,
  kPathNotFound = 76,
  kObjectNotSet = 91,
  kInvalidUseOfNull = 94,
  kNoSuchOption = 340,     // an option group has no button of that index
  kInvalidProperty = 380,  // a property refuses a value: an unknown printer name
  kInvalidPicture = 481,
  kNoCurrentRow = 3021,           // a column is read while the record set stands at its end
  kNoSuchColumn = 3265,           // no column of that name in the record set
  kObjectClosed = 3704,           // a record set that is not open is used
  kWrongThread = -2147417842,     // the platform belongs to another thread
  kDatabaseFailed = -2147467259,  // a statement or a connection failed; the description says why
};

// Carries an error number and a description for the user, in UTF-8. A description that contains
// the character 锁 means "locked by another user": the routines then try the statement again.
class Failure : public std::runtime_error {
 public:
  Failure(int number, const std::string& description)
      : std::runtime_error(description), number_(number) {}

  [[nodiscard]] int Number() const { return number_; }
  [[nodiscard]] std::string Description() const { return what(); }

 private:
  int number_;
};

}  // namespace td
