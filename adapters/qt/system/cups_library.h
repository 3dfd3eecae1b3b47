// The printing system's library, loaded when it is first used: it brings twenty others along, whose
// loading takes as long as a page, and most prints go into files.
#pragma once

#include <cups/cups.h>

namespace td {

// A function of the library.
struct CupsFunction {
  const char* name;
  template <typename Function>
  operator Function*() const {  // NOLINT: it becomes what it is assigned to
    return reinterpret_cast<Function*>(Find());
  }

 private:
  // Fails with kDeviceIo on a machine without a printing system.
  [[nodiscard]] void* Find() const;
};

// The functions that are used, under their names.
struct CupsLibrary {
  decltype(::cupsAddOption)* const cupsAddOption = CupsFunction{"cupsAddOption"};
  decltype(::cupsCancelDestJob)* const cupsCancelDestJob = CupsFunction{"cupsCancelDestJob"};
  decltype(::cupsCopyDestInfo)* const cupsCopyDestInfo = CupsFunction{"cupsCopyDestInfo"};
  decltype(::cupsCreateDestJob)* const cupsCreateDestJob = CupsFunction{"cupsCreateDestJob"};
  decltype(::cupsFindDestDefault)* const cupsFindDestDefault = CupsFunction{"cupsFindDestDefault"};
  decltype(::cupsFindDestSupported)* const cupsFindDestSupported =
      CupsFunction{"cupsFindDestSupported"};
  decltype(::cupsFinishDestDocument)* const cupsFinishDestDocument =
      CupsFunction{"cupsFinishDestDocument"};
  decltype(::cupsFreeDestInfo)* const cupsFreeDestInfo = CupsFunction{"cupsFreeDestInfo"};
  decltype(::cupsFreeDests)* const cupsFreeDests = CupsFunction{"cupsFreeDests"};
  decltype(::cupsFreeOptions)* const cupsFreeOptions = CupsFunction{"cupsFreeOptions"};
  decltype(::cupsGetDest)* const cupsGetDest = CupsFunction{"cupsGetDest"};
  decltype(::cupsGetDestMediaBySize)* const cupsGetDestMediaBySize =
      CupsFunction{"cupsGetDestMediaBySize"};
  decltype(::cupsGetDests2)* const cupsGetDests2 = CupsFunction{"cupsGetDests2"};
  decltype(::cupsGetFd)* const cupsGetFd = CupsFunction{"cupsGetFd"};
  decltype(::cupsGetNamedDest)* const cupsGetNamedDest = CupsFunction{"cupsGetNamedDest"};
  decltype(::cupsGetOption)* const cupsGetOption = CupsFunction{"cupsGetOption"};
  decltype(::cupsLastErrorString)* const cupsLastErrorString = CupsFunction{"cupsLastErrorString"};
  decltype(::cupsSetPasswordCB2)* const cupsSetPasswordCB2 = CupsFunction{"cupsSetPasswordCB2"};
  decltype(::cupsStartDestDocument)* const cupsStartDestDocument =
      CupsFunction{"cupsStartDestDocument"};
  decltype(::cupsWriteRequestData)* const cupsWriteRequestData =
      CupsFunction{"cupsWriteRequestData"};
  decltype(::ippFindAttribute)* const ippFindAttribute = CupsFunction{"ippFindAttribute"};
  decltype(::ippGetCollection)* const ippGetCollection = CupsFunction{"ippGetCollection"};
  decltype(::ippGetCount)* const ippGetCount = CupsFunction{"ippGetCount"};
  decltype(::ippGetInteger)* const ippGetInteger = CupsFunction{"ippGetInteger"};
  decltype(::ippGetString)* const ippGetString = CupsFunction{"ippGetString"};
  decltype(::pwgMediaForLegacy)* const pwgMediaForLegacy = CupsFunction{"pwgMediaForLegacy"};
  decltype(::pwgMediaForPPD)* const pwgMediaForPPD = CupsFunction{"pwgMediaForPPD"};
  decltype(::pwgMediaForPWG)* const pwgMediaForPWG = CupsFunction{"pwgMediaForPWG"};
};

// Whether this machine has a printing system.
[[nodiscard]] bool HasCups();

// Fails with kDeviceIo on a machine without a printing system.
[[nodiscard]] const CupsLibrary& Cups();

}  // namespace td
