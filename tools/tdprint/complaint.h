// What tdprint says when it can't do what it was asked for.
#pragma once

#include <string>

namespace td {

// Writes "tdprint: <what>: <why>" as one line on standard error.
void Complain(const std::string& what, const std::string& why);

// The same, and where there is a display a box in Chinese, too: who opened a window by a double
// click sees no standard error. tdprint's own words are translated; `whyInChinese` is for a reason
// that is made up of words and names, and takes the place of `why` in the box if it is not empty.
void ComplainInABox(const std::string& what, const std::string& why,
                    const std::string& whyInChinese = {});

}  // namespace td
