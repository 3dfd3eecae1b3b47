#include "text_encoding/base64.h"

#include <gtest/gtest.h>

#include <random>

namespace td {
namespace {

std::vector<std::byte> BytesOf(std::string_view text) {
  std::vector<std::byte> bytes;
  for (const char c : text) bytes.push_back(static_cast<std::byte>(c));
  return bytes;
}

TEST(Base64Test, BytesBecomeTheTextThatEachProgramReads) {
  EXPECT_EQ(EncodeBase64({}), "");
  EXPECT_EQ(EncodeBase64(BytesOf("f")), "Zg==");
  EXPECT_EQ(EncodeBase64(BytesOf("fo")), "Zm8=");
  EXPECT_EQ(EncodeBase64(BytesOf("foo")), "Zm9v");
  EXPECT_EQ(EncodeBase64(BytesOf("foobar")), "Zm9vYmFy");
  EXPECT_EQ(EncodeBase64(BytesOf("\xFF\xFE\xFB")), "//77");
}

TEST(Base64Test, AnyBytesComeBack) {
  std::mt19937 random(7);
  for (std::size_t length = 0; length < 100; ++length) {
    std::vector<std::byte> bytes(length);
    for (std::byte& byte : bytes) byte = static_cast<std::byte>(random() & 0xFFU);
    EXPECT_EQ(DecodeBase64(EncodeBase64(bytes)), bytes);
  }
}

TEST(Base64Test, WhatIsNoneIsRefused) {
  for (const char* text : {"Zg", "Zg=", "Zg===", "Z*==", "Zm9v\n", "====", "Zg==Zg=="}) {
    EXPECT_FALSE(DecodeBase64(text)) << text;
  }
}

}  // namespace
}  // namespace td
