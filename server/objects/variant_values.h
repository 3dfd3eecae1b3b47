// Variants as column values, and the other way round.
#pragma once

#include "client/client.h"
#include "objects/owned.h"
#include "platform/value.h"

namespace td {

// The variant itself, or a copy of what it refers to, which is good as long as that is and frees
// nothing. Fails with kTypeMismatch on a null reference and on one that leads round in a circle.
[[nodiscard]] TdVariant WithoutReference(const TdVariant& variant);

// Empty and Null are Null. Whole numbers, flags, texts, dates and bytes keep their kind; all other
// numbers are reals: a single one by its shortest decimal digits, so that 0.1 stays 0.1. Fails with
// kTypeMismatch on everything else: objects, errors, arrays that aren't bytes, unknown types.
[[nodiscard]] Value ValueOf(const TdVariant& variant);

// The object that the variant holds or refers to; empty for Empty, Null and an object variable that
// is set to nothing. Fails with kTypeMismatch on anything that can't be called by name.
[[nodiscard]] Reference<TdDispatch> ObjectOf(const TdVariant& variant);

// A new variant: TD_INT32 where a whole number fits, otherwise TD_INT64.
[[nodiscard]] TdVariant VariantOf(const Value& value);

// A string as UTF-8.
[[nodiscard]] std::string TextOf(TdString string);

// A new string of UTF-8.
[[nodiscard]] TdString StringOf(const std::string& text);

}  // namespace td
