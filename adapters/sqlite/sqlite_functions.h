// The functions that the statements call and SQLite lacks.
#pragma once

struct sqlite3;

namespace td {

// isnull(a, b): a, or b where a is Null, each of its own kind.
// left(text, n): the first n characters of a value's text; Null when either is Null; an n that is
// negative or no number is an error.
void RegisterFunctions(sqlite3* engine);

}  // namespace td
