#include "print_queue.h"

#include <cups/cups.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>

namespace td {
namespace {

namespace fs = std::filesystem;

constexpr const char* kResults = "/var/spool/cups-pdf/qbtd";
const std::string kAsRoot =
    "PATH=$PATH:/usr/sbin:/sbin; " + std::string(geteuid() == 0 ? "" : "sudo ");

struct Job {
  int number;
  std::string title;
};

std::vector<Job> Jobs(int which) {
  cups_job_t* list = nullptr;
  const int count = cupsGetJobs2(CUPS_HTTP_DEFAULT, &list, nullptr, 0, which);
  std::vector<Job> jobs;
  for (int i = 0; i < count; ++i) jobs.push_back({list[i].id, list[i].title});
  cupsFreeJobs(count, list);
  return jobs;
}

bool IsActive(int job) {
  return std::ranges::count(Jobs(CUPS_WHICHJOBS_ACTIVE), job, &Job::number) > 0;
}

}  // namespace

void PrintQueues::SetUp() {
  ASSERT_EQ(std::system(QBTD_SOURCE_DIR "/scripts/cups-for-tests.sh"), 0);
}

TemporaryQueue::TemporaryQueue(const std::string& option, const std::string& edit)
    : name_(UniqueTitle("queue")) {
  const std::string driver = (fs::temp_directory_path() / (name_ + ".ppd")).string();
  const std::string edited =
      "sed '" + edit + "' /usr/share/ppd/cups-pdf/CUPS-PDF_noopt.ppd >" + driver;
  EXPECT_EQ(std::system(edited.c_str()), 0);
  const std::string command = kAsRoot + "lpadmin -p " + name_ + " -E -v cups-pdf:/qbtd -o " +
                              option + " -P " + driver + " 2>/dev/null";
  EXPECT_EQ(std::system(command.c_str()), 0);
  fs::remove(driver);
}

void TemporaryQueue::Remove() {
  if (!isThere_) return;
  isThere_ = false;
  EXPECT_EQ(std::system((kAsRoot + "lpadmin -x " + name_).c_str()), 0);
}

std::string ResultOf(int job) {
  using namespace std::chrono_literals;
  for (int i = 0; i < 600 && IsActive(job); ++i) std::this_thread::sleep_for(100ms);
  const std::string start = "job_" + std::to_string(job) + "-";
  for (const fs::directory_entry& entry : fs::directory_iterator(kResults)) {
    if (entry.path().filename().string().starts_with(start)) return entry.path().string();
  }
  ADD_FAILURE() << "the queue has made nothing of job " << job;
  return {};
}

std::string UniqueTitle(const std::string& purpose) {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return "qbtd-" + purpose + "-" + std::to_string(getpid()) + "-" + std::to_string(now.count());
}

std::vector<int> JobsTitled(const std::string& title) {
  std::vector<int> numbers;
  for (const Job& job : Jobs(CUPS_WHICHJOBS_ALL)) {
    if (job.title == title) numbers.push_back(job.number);
  }
  std::ranges::sort(numbers);
  return numbers;
}

std::string AttributeOf(int job, const std::string& name) {
  ipp_t* request = ippNewRequest(IPP_OP_GET_JOB_ATTRIBUTES);
  const std::string uri = "ipp://localhost/jobs/" + std::to_string(job);
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "job-uri", nullptr, uri.c_str());
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
               cupsUser());
  ipp_t* answer = cupsDoRequest(CUPS_HTTP_DEFAULT, request, "/");
  ipp_attribute_t* attribute = ippFindAttribute(answer, name.c_str(), IPP_TAG_ZERO);
  const char* text = attribute == nullptr ? nullptr : ippGetString(attribute, 0, nullptr);
  const std::string found = text == nullptr ? "" : text;
  ippDelete(answer);
  return found;
}

}  // namespace td
