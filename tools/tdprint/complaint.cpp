#include "complaint.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <string_view>

#include "desktop/desktop_platform.h"
#include "platform/failure.h"

namespace td {
namespace {

struct Words {
  std::string_view english;
  std::string_view chinese;
};

constexpr std::array kDictionary = {
    Words{"not printed", "没有打印"},
    Words{"not shown", "没有显示"},
    Words{"the database can't be opened", "打不开数据库"},
    Words{"the registered formats can't be read", "读不出已登记的套打格式"},
    Words{"the rows can't be read", "读不出要打印的数据"},
    Words{"the rows have no column FInterID", "数据中没有 FInterID 列"},
    Words{"the query gave no row", "没有查到要打印的数据"},
    Words{"the window can't be shown", "打不开窗口"},
    Words{"the designer can't be shown", "打不开套打格式设计窗口"},
};

// What the dictionary doesn't have, such as the words of a database, stands as it is.
std::string InChinese(const std::string& words) {
  const auto* found = std::ranges::find(kDictionary, std::string_view(words), &Words::english);
  return found == kDictionary.end() ? words : std::string(found->chinese);
}

}  // namespace

void Complain(const std::string& what, const std::string& why) {
  std::string line = "tdprint: " + what + ": " + why;
  std::replace(line.begin(), line.end(), '\n', ' ');
  std::cerr << line << std::endl;
}

void ComplainInABox(const std::string& what, const std::string& why,
                    const std::string& whyInChinese) {
  Complain(what, why);
  DesktopPlatform desktop;
  if (!desktop.HasDisplay()) return;
  desktop.Get().messages.ShowBox(
      InChinese(what) + "：" + (whyInChinese.empty() ? InChinese(why) : whyInChinese),
      kInformationIcon);
}

}  // namespace td
