#include "designer/view/words.h"

#include <QLocale>
#include <algorithm>
#include <array>

namespace td::designer {
namespace {

struct Words {
  std::string_view english;
  std::string_view chinese;
};

constexpr Words kWords[] = {
    // bands
    {"Head", "页眉"},
    {"Column head", "表头"},
    {"Row", "明细行"},
    {"After the rows", "表尾"},
    {"Foot", "页脚"},
    {"No band", "无带区"},
    // the window
    {"Form designer", "套打格式设计"},
    {"Sheet", "纸张"},
    {"there is no display", "没有可用的显示"},
    {"the rows have no column FInterID", "数据中没有 FInterID 列"},
    {"Page %1 of %2", "第 %1 页，共 %2 页"},
    {"%1 items: %2", "%1 项：%2"},
    {"Scan of the form", "表单扫描图"},
    {"OK", "确定"},
    {"Cancel", "取消"},
    {"Close", "关闭"},
    // menus
    {"File", "文件"},
    {"Edit", "编辑"},
    {"Arrange", "排列"},
    {"View", "视图"},
    {"Help", "帮助"},
    {"Toolbar", "工具栏"},
    {"New …", "新建…"},
    {"Open …", "打开…"},
    {"Save", "保存"},
    {"Copy the format …", "复制格式…"},
    {"Rename …", "改名…"},
    {"Delete the format …", "删除格式…"},
    {"Make it the selected format", "设为选用格式"},
    {"Export to a file …", "导出到文件…"},
    {"Import from a file …", "从文件导入…"},
    {"Export to a file", "导出到文件"},
    {"Import from a file", "从文件导入"},
    {"Formats", "套打格式"},
    {"Undo", "撤销"},
    {"Redo", "重做"},
    {"Cut", "剪切"},
    {"Copy", "复制"},
    {"Paste", "粘贴"},
    {"Delete", "删除"},
    {"Select all", "全选"},
    {"Align left edges", "左对齐"},
    {"Align centres", "左右居中对齐"},
    {"Align right edges", "右对齐"},
    {"Align top edges", "顶端对齐"},
    {"Align middles", "上下居中对齐"},
    {"Align bottom edges", "底端对齐"},
    {"Distribute across", "横向均匀分布"},
    {"Distribute down", "纵向均匀分布"},
    {"Same width", "同宽"},
    {"Same height", "同高"},
    {"To the front", "置于最前"},
    {"Forward", "上移一层"},
    {"Backward", "下移一层"},
    {"To the back", "置于最后"},
    {"Put into the band", "放入带区"},
    {"Zoom", "缩放"},
    {"Zoom in", "放大"},
    {"Zoom out", "缩小"},
    {"True size", "实际大小"},
    {"Whole sheet", "整页"},
    {"Whole width", "页宽"},
    {"Values only, as on the pre-printed form", "只看套打数据（预印表单）"},
    {"Values of the data in the place of captions", "用实际数据代替名称"},
    {"Previous page", "上一页"},
    {"Next page", "下一页"},
    {"Bands", "带区"},
    {"Frames of the items", "项目边框"},
    {"Grid", "网格"},
    {"Snap to grid, guides and items", "对齐到网格、参考线和项目"},
    {"Remove all guides", "清除全部参考线"},
    {"Mouse and keys", "鼠标与按键"},
    // steps that can be undone
    {"Add", "添加"},
    {"Move", "移动"},
    {"Resize", "改变大小"},
    {"Align", "对齐"},
    {"Distribute", "均匀分布"},
    {"Change items", "修改项目"},
    {"Change the band", "更换带区"},
    {"Change the order", "调整次序"},
    {"Change the format", "修改格式"},
    {"Change variables", "修改变量"},
    // opening and saving
    {"Open a format", "打开格式"},
    {"Open", "打开"},
    {"Formats of this bill type:", "本单据类型的格式："},
    {"%1 (selected)", "%1（选用）"},
    {"New format", "新格式"},
    {"Name of the new format:", "新格式的名称："},
    {"Save the format under the name:", "将格式保存为："},
    {"Name of the copy:", "副本的名称："},
    {"Copy of %1", "%1 副本"},
    {"New name of the format:", "格式的新名称："},
    {"There is a format “%1” already.", "已有名为“%1”的格式。"},
    {"“%1” has changes that are not saved.", "“%1”有尚未保存的修改。"},
    {"Discard", "放弃"},
    {"Restore", "恢复"},
    {"The designer ended %1 minutes ago without saving “%2”. What was kept can be restored.",
     "设计程序在 %1 分钟前中断，“%2”没有保存，可以恢复当时的内容。"},
    {"What isn't saved can't be kept against a crash: %1", "无法为尚未保存的内容留存恢复文件：%1"},
    {"Delete the format “%1” with all its items? This can't be undone.",
     "删除格式“%1”及其全部项目？此操作不能撤销。"},
    {"Somebody else has deleted “%1” since it was opened.", "“%1”打开之后已被他人删除。"},
    {"Save as a new format", "另存为新格式"},
    {"Somebody else has changed “%1” since it was opened. This is what differs:",
     "“%1”打开之后已被他人修改，差异如下："},
    {"Save over it", "仍然保存，覆盖他人的修改"},
    {"Drop mine and load theirs", "放弃我的修改，载入他人的"},
    {"Somebody else is writing to these tables. Waiting …", "这些数据表正被他人写入，请稍候…"},
    {"Give up", "放弃等待"},
    // the connection
    {"Which database holds the formats?", "套打格式在哪个数据库中？"},
    {"Connection text:", "连接文本："},
    {"Bill type:", "单据类型："},
    {"File …", "文件…"},
    {"Database file", "数据库文件"},
    // the sheet
    {"Drag a guide out of the ruler", "从标尺中拖出参考线"},
    {"the file can't be read as PDF", "无法作为 PDF 读取此文件"},
    {"the file has no such page", "文件中没有这一页"},
    // the scan
    {"Load a scan or a photo …", "载入扫描图或照片…"},
    {"Load a scan or a photo", "载入扫描图或照片"},
    {"Remove the scan", "移除扫描图"},
    {"Drag it with the mouse", "用鼠标拖动"},
    {"Straighten by three points …", "用三点校正…"},
    {"Show the scan", "显示扫描图"},
    {"Opacity:", "不透明度："},
    {"Left:", "左："},
    {"Top:", "上："},
    {"Width:", "宽："},
    {"Height:", "高："},
    {"Pictures and PDF", "图片和 PDF"},
    {"Which of the %1 pages?", "共 %1 页，载入哪一页？"},
    {"Click the first point: a corner of the form's frame.", "请点击第一点：表单边框的一角。"},
    {"Click the second point, in one line with it to the right.",
     "请点击第二点：与第一点同一水平线，在其右方。"},
    {"Click the third point, straight below the first.", "请点击第三点：在第一点正下方。"},
    {"Distances on the form", "表单上的距离"},
    {"Measure them on the paper form with a ruler.", "请用直尺在纸质表单上量取。"},
    {"From the first to the second point:", "第一点到第二点："},
    {"From the first to the third point:", "第一点到第三点："},
    {"From the left edge of the sheet to the first point:", "纸张左边到第一点："},
    {"From the top edge of the sheet to the first point:", "纸张上边到第一点："},
    {"Straighten", "校正"},
    {"The three points lie in one line; choose others.", "三点在同一直线上，请另选。"},
    {"Click selects, Ctrl and click adds, dragging over free space catches: from left to right "
     "what lies inside, from right to left what is touched.\n\nDragging moves, with Shift along "
     "one direction, with Alt without snapping; Escape takes a drag back. Arrow keys move by 0.1 "
     "mm, with Shift by 1 mm.\n\nGuides are dragged out of the rulers, and off the sheet to remove "
     "them. Beside the rows, the upper handle drags their height, the lower one their "
     "number.\n\nCtrl and the wheel zoom.",
     "单击选中，按住 Ctrl "
     "单击追加；在空白处拖动可框选：从左向右选中完全框住的，从右向左选中碰到的。\n\n拖动可移动，按"
     "住 Shift 只沿一个方向，按住 Alt 不对齐；按 Esc 取消拖动。方向键每次移动 0.1 毫米，加 Shift "
     "为 1 "
     "毫米。\n\n从标尺中拖出参考线，拖出纸外即删除。明细行旁的上手柄调整行高，下手柄调整每页行数。"
     "\n\nCtrl 加滚轮缩放。"},
};

}  // namespace

bool SpeaksChinese() {
  static const bool isChinese = QLocale::system().language() == QLocale::Chinese;
  return isChinese;
}

QString Say(const char* english) {
  if (!SpeaksChinese()) return QString::fromUtf8(english);
  const auto* found = std::ranges::find(kWords, std::string_view(english), &Words::english);
  const std::string_view words = found == std::end(kWords) ? english : found->chinese;
  return QString::fromUtf8(words.data(), static_cast<qsizetype>(words.size()));
}

bool HasWords(std::string_view english) {
  return std::ranges::find(kWords, english, &Words::english) != std::end(kWords);
}

QString NameOfBand(int site) {
  static constexpr std::array kNames = {"Head", "Column head", "Row", "After the rows", "Foot"};
  const bool isBand = site >= 1 && site <= static_cast<int>(kNames.size());
  return Say(isBand ? kNames[static_cast<std::size_t>(site) - 1] : "No band");
}

}  // namespace td::designer
