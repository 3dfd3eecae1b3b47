// What is on the disk when a process is killed in the middle of its work.
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <random>
#include <thread>

#include "client/registration.h"
#include "file_tools.h"
#include "page_document/drawing.h"
#include "page_outputs/export_folder.h"
#include "qt/pictures/qt_picture_files.h"
#include "qt/system/application.h"
#include "render/outputs.h"

namespace td {
namespace {

namespace fs = std::filesystem;

// A process that does the same over and over until it is killed.
class Worker {
 public:
  explicit Worker(const std::function<void()>& work) : process_(fork()) {
    if (process_ != 0) return;
    try {
      for (;;) work();
    } catch (const std::exception& error) {
      std::fprintf(stderr, "%s\n", error.what());
    }
    _exit(1);
  }
  // True if it was at work until now.
  [[nodiscard]] bool Kill() const {
    kill(process_, SIGKILL);
    int state = 0;
    return waitpid(process_, &state, 0) == process_ && WIFSIGNALED(state);
  }

 private:
  pid_t process_;
};

// Kills the worker at many moments, and looks at what it left after each.
void KillAtRandomMoments(int times, const std::function<void()>& work,
                         const std::function<void()>& look) {
  std::mt19937 random(20240301);
  std::uniform_int_distribution<int> microseconds(0, 20'000);
  for (int i = 0; i < times && !testing::Test::HasFailure(); ++i) {
    const Worker worker(work);
    std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
    ASSERT_TRUE(worker.Kill());
    look();
  }
}

// What is there besides the files themselves is nothing but drafts, which a later write sweeps.
void ExpectOnlyDraftsBeside(const TestFolder& folder, const std::set<std::string>& files) {
  for (const std::string& name : folder.Names()) {
    if (files.contains(name)) continue;
    EXPECT_TRUE(name.starts_with(".qbtdprinter-")) << name;
    MakeOld(folder / name);
  }
}

constexpr int kTimes = 150;

TEST(AKilledProcess, LeavesTheExportFileWhole) {
  const TestFolder folder;
  const std::string one(700'000, '1');
  const std::string other(900'000, '2');
  const auto write = [&](const std::string& content) {
    WritePrivateFile(folder.Path(), "订单.html", [&](const ByteSink& sink) {
      for (std::size_t i = 0; i < content.size(); i += 10'000) sink(content.substr(i, 10'000));
    });
  };
  write(one);
  KillAtRandomMoments(
      kTimes,
      [&] {
        write(other);
        write(one);
      },
      [&] {
        const std::string content = ContentOf(folder / "订单.html");
        EXPECT_TRUE(content == one || content == other) << content.size() << " bytes";
        ExpectOnlyDraftsBeside(folder, {"订单.html"});
      });
  write(other);
  EXPECT_EQ(folder.Names(), std::set<std::string>{"订单.html"});
}

TEST(AKilledProcess, LeavesAPdfWholeOrNone) {
  EnsureApplication();
  const TestFolder folder;
  const auto font = std::make_shared<const TextFont>();
  const std::vector<DrawingCommand> commands = {
      BoxText{"No. 1", 500, 500, 3000, 400, false, {}, font}};
  const std::vector<Page> pages(20, Page{6000, 4000, commands});
  const std::string whole = ToPdf(pages, "bill");
  const fs::path pdf = folder / "bill.pdf";
  KillAtRandomMoments(
      kTimes,
      [&] {
        fs::remove(pdf);
        WritePdf(pages, pdf, "bill");
      },
      [&] {
        if (!fs::exists(pdf)) return;
        const std::string content = ContentOf(pdf);
        EXPECT_TRUE(content.ends_with("%%EOF\n")) << content.size() << " bytes";
        EXPECT_EQ(content.size(), whole.size());
        ExpectOnlyDraftsBeside(folder, {"bill.pdf"});
      });
}

TEST(AKilledProcess, LeavesTheRegistrationWhole) {
  const TestFolder folder;
  chmod(folder.Path().c_str(), 0700);
  setenv("XDG_DATA_HOME", folder.Path().c_str(), 1);
  Put(folder / "module.so", "");
  fs::permissions(folder / "module.so", fs::perms(0600));
  const auto classes = [&](std::size_t count) {
    return std::vector<RegisteredClass>(count, {"A.Class", kTdPrinterClass, folder / "module.so"});
  };
  WriteRegistration(classes(1));
  KillAtRandomMoments(
      kTimes,
      [&] {
        WriteRegistration(classes(300));
        WriteRegistration(classes(1));
      },
      [&] {
        const std::size_t count = ReadRegistration().size();
        EXPECT_TRUE(count == 1 || count == 300) << count;
      });
  unsetenv("XDG_DATA_HOME");
}

TEST(AKilledProcess, LeavesAGoodsPictureWholeOrNone) {
  const TestFolder folder;
  QtPictureFiles files(folder.Path());
  const Bytes bytes(500'000, std::byte{7});
  const fs::path picture = folder / "5.jpg";
  KillAtRandomMoments(
      kTimes,
      [&] {
        if (files.FileExists(picture)) files.DeleteFile(picture);
        files.SaveNewFile(picture, bytes);
      },
      [&] {
        if (!fs::exists(picture)) return;
        EXPECT_EQ(fs::file_size(picture), bytes.size());
        ExpectOnlyDraftsBeside(folder, {"5.jpg"});
      });
}

}  // namespace
}  // namespace td
