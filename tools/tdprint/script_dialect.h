// How the engines write what the sample's SQL writes in one way.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "sample_script.h"

namespace td {

// What stands at the head of a script: settings of the client under which the rest means what it
// says. Empty, or whole lines.
[[nodiscard]] std::string_view ScriptHead(ScriptEngine engine);

// What ends a statement: lines.
[[nodiscard]] std::string_view StatementEnd(ScriptEngine engine);

// A create statement, without an end, in the words of the engine; see WriteSampleScript.
[[nodiscard]] std::string ToScriptDialect(std::string_view createStatement, ScriptEngine engine);

[[nodiscard]] std::string TextLiteral(std::string_view text, ScriptEngine engine);
[[nodiscard]] std::string BytesLiteral(const unsigned char* bytes, std::size_t size,
                                       ScriptEngine engine);

}  // namespace td
