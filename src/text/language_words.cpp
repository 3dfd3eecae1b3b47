#include "text/language_words.h"

namespace td {

namespace {

constexpr LanguageWords kChineseWords{
    .weekdays = {"星期日", "星期一", "星期二", "星期三", "星期四", "星期五", "星期六"},
    .shortWeekdays = {"周日", "周一", "周二", "周三", "周四", "周五", "周六"},
    .months = {"一月", "二月", "三月", "四月", "五月", "六月", "七月", "八月", "九月", "十月",
               "十一月", "十二月"},
    .shortMonths = {"1月", "2月", "3月", "4月", "5月", "6月", "7月", "8月", "9月", "10月", "11月",
                    "12月"},
    .forenoon = "上午",
    .afternoon = "下午",
    .longDate = "yyyy年m月d日",
    .mediumDate = "yy-mm-dd",
    .mediumTime = "AMPM hh:nn",
    .yesNo = {"是", "否"},
    .trueFalse = {"真", "假"},
    .onOff = {"开", "关"},
};

constexpr LanguageWords kEnglishWords{
    .weekdays = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"},
    .shortWeekdays = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"},
    .months = {"January", "February", "March", "April", "May", "June", "July", "August",
               "September", "October", "November", "December"},
    .shortMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov",
                    "Dec"},
    .forenoon = "AM",
    .afternoon = "PM",
    .longDate = "dddd, mmmm d, yyyy",
    .mediumDate = "dd-mmm-yy",
    .mediumTime = "hh:nn AMPM",
    .yesNo = {"Yes", "No"},
    .trueFalse = {"True", "False"},
    .onOff = {"On", "Off"},
};

}  // namespace

const LanguageWords& WordsOf(FormatLanguage language) {
  return language == FormatLanguage::kEnglish ? kEnglishWords : kChineseWords;
}

}  // namespace td
