#include "calibrate_command.h"

#include <array>
#include <cmath>
#include <iostream>
#include <sstream>

#include "calibration/calibration_file.h"
#include "calibration/machine_calibrations.h"
#include "calibration_input.h"
#include "calibration_pages.h"
#include "complaint.h"
#include "desktop/desktop_platform.h"
#include "platform/failure.h"
#include "standard_streams.h"

namespace td {
namespace {

constexpr Sentence kSent{"The page went to {0}.", "已打印到 {0}。"};
constexpr Sentence kAsk{
    "Measure how far the middle of each cross is from the edges of the paper: two numbers in "
    "millimetres, such as 20.3 19.8. An empty line ends, and nothing is kept.",
    "用尺量出各十字中心到纸边的距离，输入两个数，单位毫米，例如 20.3 19.8；空行则结束，不保存。"};
constexpr Sentence kHowToGoOn{
    "Measure how far the middle of each cross is from the edges of the paper, and say so:",
    "用尺量出各十字中心到纸边的距离，然后运行："};
constexpr Sentence kHowToCheck{"To see that it is right:", "检查是否准确："};
constexpr Sentence kKept{"Kept in {0}:", "已保存到 {0}："};
constexpr Sentence kRemoved{"Removed from {0}: {1}, {2}", "已从 {0} 删除：{1}，{2}"};
constexpr Sentence kNone{"There is no calibration on this machine.", "本机没有校准。"};
constexpr Sentence kHidden{"not used: this user has another", "未使用：本用户另有校准"};
constexpr Sentence kWords{
    "shift {0} and {1}, turn {2}, stretch {3} % across and {4} % along, skew {5}°",
    "偏移 {0}、{1}，旋转 {2}，横向伸缩 {3} %，纵向伸缩 {4} %，歪斜 {5}°"};
constexpr Sentence kRight{"{0} mm to the right", "向右 {0} 毫米"};
constexpr Sentence kLeft{"{0} mm to the left", "向左 {0} 毫米"};
constexpr Sentence kDown{"{0} mm down", "向下 {0} 毫米"};
constexpr Sentence kUp{"{0} mm up", "向上 {0} 毫米"};
constexpr Sentence kClockwise{"{0}° clockwise", "顺时针 {0}°"};
constexpr Sentence kAnticlockwise{"{0}° anticlockwise", "逆时针 {0}°"};

std::string TwoPlaces(double number, bool withSign) {
  constexpr double kParts = 100;
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text << std::fixed;
  text.precision(2);
  if (withSign) text << std::showpos;
  text << std::round(number * kParts) / kParts + 0.0;  // no minus before a zero
  return text.str();
}

std::string Amount(Language language, double amount, const Sentence& forward,
                   const Sentence& backward) {
  return Fill(language, amount < 0 ? backward : forward, TwoPlaces(std::abs(amount), false));
}

std::string InWords(const Distortion& distortion, Language language) {
  return Fill(language, kWords, Amount(language, distortion.shiftAcross, kRight, kLeft),
              Amount(language, distortion.shiftAlong, kDown, kUp),
              Amount(language, distortion.turn, kClockwise, kAnticlockwise),
              TwoPlaces(distortion.stretchAcross, true), TwoPlaces(distortion.stretchAlong, true),
              TwoPlaces(distortion.skew, true));
}

std::string Quoted(const std::string& text) {
  return text.find_first_of(" \t'\"\\$&;()<>|*?`!#") == std::string::npos ? text
                                                                          : "\"" + text + "\"";
}

// One step of a calibration.
class Calibrating {
 public:
  explicit Calibrating(const CalibrateArguments& arguments)
      : arguments_(arguments),
        language_(LanguageOfLocale()),
        sheet_(SheetNamed(arguments.paper).value_or(PaperExtent{})) {}

  ExitStatus Run() {
    if (const std::string wrong = WrongUsage(); !wrong.empty()) {
      Complain("wrong usage", wrong);
      return ExitStatus::kWrongUsage;
    }
    if (arguments_.list) return List();
    if (arguments_.remove) return Remove();
    if (arguments_.pdf.empty() && !DesktopPlatform().HasPrinter(arguments_.printer)) {
      Complain("nothing done", "there is no printer named " + arguments_.printer);
      return ExitStatus::kNotPrinted;
    }
    if (!arguments_.form.empty()) return PrintForm();
    if (arguments_.check) return PrintCheck();
    if (GivesDistances()) return Keep();
    return PrintPage();
  }

 private:
  [[nodiscard]] bool GivesDistances() const {
    return !arguments_.topLeft.empty() || !arguments_.topRight.empty() ||
           !arguments_.bottomLeft.empty();
  }

  // What doesn't go together, or is missing; empty if all is well.
  [[nodiscard]] std::string WrongUsage() const {
    const bool isForm = !arguments_.form.empty();
    const int steps = int{arguments_.list} + int{arguments_.remove} + int{arguments_.check} +
                      int{isForm} + int{GivesDistances()};
    if (steps > 1) {
      return "--list, --remove, --check, --form and the distances are steps of their own";
    }
    if (isForm != !arguments_.database.empty() || isForm != arguments_.billType.has_value()) {
      return "--form, --db and --type belong together";
    }
    const bool isForPaper = !arguments_.pdf.empty();
    if (isForPaper && (arguments_.list || arguments_.remove || GivesDistances())) {
      return "--pdf is for pages";
    }
    if (isForPaper && arguments_.check)
      return "files are never calibrated: --check is for printers";
    if (arguments_.printer.empty() && !arguments_.list && !isForPaper)
      return "--printer is missing";
    if (arguments_.paper.empty() && !arguments_.list && !isForm) return "--paper is missing";
    return {};
  }

  ExitStatus PrintForm() {
    SendForm(arguments_);
    if (arguments_.pdf.empty()) Say(kSent, arguments_.printer);
    return ExitStatus::kPrinted;
  }

  ExitStatus PrintCheck() {
    const auto inForce = CalibrationInForce(
        files_, arguments_.printer, sheet_,
        [](const std::string& why) { Complain("a file of calibrations is not used", why); });
    if (!inForce) {
      Complain("not printed", "there is no calibration of " + arguments_.printer + " on " +
                                  SheetText(MillimetresOf(sheet_)));
      return ExitStatus::kNotPrinted;
    }
    SendTestPage(arguments_, sheet_, language_);
    Say(kSent, arguments_.printer);
    return ExitStatus::kPrinted;
  }

  ExitStatus PrintPage() {
    SendTestPage(arguments_, sheet_, language_);
    if (!arguments_.pdf.empty()) return ExitStatus::kPrinted;
    Say(kSent, arguments_.printer);
    if (StandardInputIsTerminal() && StandardOutputIsTerminal()) return Keep();
    Say(kHowToGoOn);
    std::cout << "  " << ThisCommand() << " --top-left X,Y --top-right X,Y --bottom-left X,Y\n"
              << std::flush;
    return ExitStatus::kPrinted;
  }

  // Asks for the distances that were not given.
  ExitStatus Keep() {
    Calibration calibration{.printer = arguments_.printer,
                            .sheet = MillimetresOf(sheet_),
                            .asked = CrossesOf(sheet_),
                            .topLeft = {},
                            .topRight = {},
                            .bottomLeft = {}};
    const std::array corners = {std::pair(&arguments_.topLeft, &calibration.topLeft),
                                std::pair(&arguments_.topRight, &calibration.topRight),
                                std::pair(&arguments_.bottomLeft, &calibration.bottomLeft)};
    const bool canAsk = StandardInputIsTerminal();
    bool isAsked = false;
    for (std::size_t i = 0; i < corners.size(); ++i) {
      const auto& [given, distances] = corners[i];
      const auto corner = static_cast<Corner>(i);
      std::optional<Distances> read = ParseDistances(*given);
      if (!read && !canAsk) {
        Complain("wrong usage",
                 "not given: " + std::string(CornerText(corner, Language::kEnglish)));
        return ExitStatus::kWrongUsage;
      }
      if (!read) {
        if (!isAsked) Say(kAsk);
        isAsked = true;
        read = AskForDistances(std::cin, std::cout, corner, language_);
      }
      if (!read) return ExitStatus::kPrinted;
      *distances = *read;
    }
    return Keep(calibration);
  }

  ExitStatus Keep(const Calibration& calibration) {
    const std::optional<AffineMap> map = MapOf(calibration);
    if (!map) {
      Complain("not calibrated", "the crosses can't be that far from the edges of a sheet of " +
                                     SheetText(calibration.sheet));
      return ExitStatus::kNotPrinted;
    }
    const Distortion distortion = DistortionOf(*map);
    if (!IsPlausible(distortion)) {
      Complain("not calibrated",
               "the distances would mean " + InWords(distortion, Language::kEnglish) +
                   "; no more than 20 mm, 3° and 5 % are believed: measure again, from the edges "
                   "of the paper that are nearest to each cross");
      return ExitStatus::kNotPrinted;
    }
    PutCalibration(File(), calibration);
    Say(kKept, File());
    std::cout << "  " << Line(calibration) << "\n";
    Say(kHowToCheck);
    std::cout << "  " << ThisCommand() << " --check\n" << std::flush;
    return ExitStatus::kPrinted;
  }

  ExitStatus Remove() {
    if (!RemoveCalibration(File(), arguments_.printer, sheet_)) {
      Complain("nothing removed", File() + " has no calibration of " + arguments_.printer + " on " +
                                      SheetText(MillimetresOf(sheet_)));
      return ExitStatus::kNotPrinted;
    }
    Say(kRemoved, File(), arguments_.printer, SheetText(MillimetresOf(sheet_)));
    return ExitStatus::kPrinted;
  }

  ExitStatus List() {
    const std::vector<Calibration> own =
        files_.user.empty() ? std::vector<Calibration>() : ReadCalibrations(files_.user);
    const std::vector<Calibration> ofAll = ReadCalibrations(files_.machine);
    if (own.empty() && ofAll.empty()) Say(kNone);
    Show(files_.user, own, {});
    Show(files_.machine, ofAll, own);
    return ExitStatus::kPrinted;
  }

  void Show(const std::string& file, const std::vector<Calibration>& calibrations,
            const std::vector<Calibration>& before) const {
    if (!calibrations.empty()) std::cout << file << "\n";
    for (const Calibration& calibration : calibrations) {
      std::cout << "  " << Line(calibration);
      if (FindCalibration(before, calibration.printer, SheetOf(calibration)) != nullptr) {
        std::cout << " (" << kHidden.In(language_) << ")";
      }
      std::cout << "\n";
    }
    std::cout << std::flush;
  }

  [[nodiscard]] std::string Line(const Calibration& calibration) const {
    return calibration.printer + ", " + SheetText(calibration.sheet) + ": " +
           InWords(DistortionOf(MapOf(calibration).value_or(AffineMap{})), language_);
  }

  [[nodiscard]] std::string ThisCommand() const {
    return "tdprint calibrate --printer " + Quoted(arguments_.printer) + " --paper " +
           SheetOption(MillimetresOf(sheet_));
  }

  // Fails where there is no place for it.
  [[nodiscard]] const std::string& File() const {
    const std::string& file = arguments_.allUsers ? files_.machine : files_.user;
    if (file.empty()) throw Failure(kDeviceIo, "there is no folder for settings");
    return file;
  }

  template <class... Texts>
  void Say(const Sentence& sentence, const Texts&... texts) const {
    std::cout << Fill(language_, sentence, texts...) << "\n" << std::flush;
  }

  const CalibrateArguments& arguments_;
  const Language language_;
  const PaperExtent sheet_;
  const CalibrationFiles files_ = CalibrationFiles::OfThisMachine();
};

}  // namespace

ExitStatus CalibratePrinter(const CalibrateArguments& arguments) {
  try {
    return Calibrating(arguments).Run();
  } catch (const Failure& failure) {
    Complain("nothing done", failure.Description());
    return ExitStatus::kNotPrinted;
  }
}

}  // namespace td
