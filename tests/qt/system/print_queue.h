// The test queues, and what they make of the jobs that they get.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace td {

// Starts the printing system and makes the queues, once in a test program.
class PrintQueues : public testing::Environment {
 public:
  void SetUp() override;
};

// A queue like QbTd-PDF that is there until Remove(), or as long as this object.
class TemporaryQueue {
 public:
  // `option` is one that lpadmin takes behind -o, `edit` a command of sed for its driver.
  explicit TemporaryQueue(const std::string& option = "printer-is-shared=false",
                          const std::string& edit = {});
  ~TemporaryQueue() { Remove(); }
  TemporaryQueue(const TemporaryQueue&) = delete;
  TemporaryQueue& operator=(const TemporaryQueue&) = delete;

  [[nodiscard]] const std::string& Name() const { return name_; }
  void Remove();

 private:
  std::string name_;
  bool isThere_ = true;
};

// Waits until a job has left its queue and returns the PDF file that the queue made of it.
std::string ResultOf(int job);

// A title that no other job has: others print at the same time, and the printing system remembers
// jobs of former runs.
std::string UniqueTitle(const std::string& purpose);

// The numbers of all jobs with a title, in their order.
std::vector<int> JobsTitled(const std::string& title);

// What the printing system has noted of a job under a name, such as "sides".
std::string AttributeOf(int job, const std::string& name);

}  // namespace td
