// The DLL as programs of the system see it: by its four functions and by calls by name.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "windows/api/wide_text.h"
#include "windows/api/windows_api.h"

// Behind the system's other headers.
#include <objbase.h>
#include <oleauto.h>

namespace td {

inline constexpr GUID kPrinterClass = {
    0x2389511E, 0xAE07, 0x4A8F, {0xBF, 0x68, 0xF2, 0xD1, 0x55, 0x42, 0xC8, 0x7E}};
inline constexpr GUID kSessionClass = {
    0xBEC9E21A, 0x8357, 0x4EC5, {0xB2, 0x61, 0x5C, 0xEC, 0x43, 0xB8, 0x2E, 0x3B}};
inline constexpr GUID kSettingsClass = {
    0xA15FD0B3, 0x9AE9, 0x4BD7, {0x91, 0x65, 0x60, 0x0A, 0xB8, 0xD4, 0x0F, 0xD1}};
inline constexpr GUID kNoId = {};

// How a call by name ended.
struct Answer {
  HRESULT result = S_OK;
  HRESULT code = S_OK;  // of an exception
  std::string description;
  UINT badArgument = 99;
  VARIANT value{};
};

[[nodiscard]] VARIANT OfFlag(bool flag);
[[nodiscard]] VARIANT OfNumber(int number);
[[nodiscard]] VARIANT OfText(const std::wstring& text);
// Gives the reference up; null is the object variable without an object.
[[nodiscard]] VARIANT OfObject(IDispatch* object);
[[nodiscard]] VARIANT LeftOut();

// `arguments` stand in their order, and are given up.
Answer Call(IDispatch* object, const wchar_t* name, WORD kind, std::vector<VARIANT> arguments);

class Module : public testing::Test {
 protected:
  Module();
  ~Module() override;

  [[nodiscard]] HRESULT Get(const GUID& classId, IClassFactory** factory) const;
  [[nodiscard]] IDispatch* New(const GUID& classId) const;
  [[nodiscard]] IDispatch* NewPrinter() const { return New(kPrinterClass); }
  [[nodiscard]] bool CanBeUnloaded() const;
  // One of the functions without arguments.
  [[nodiscard]] HRESULT Run(const char* name) const;

  HMODULE module_;
};

}  // namespace td
