// Whoever wants to know of the print calls of a platform.
#pragma once

namespace td {

// Told on the thread of the calls, in this order, whatever fails. A preview may make and print any
// number of documents. Nothing that a listener does may fail.
class CallListener {
 public:
  virtual ~CallListener() = default;

  virtual void CallBegins() = 0;
  virtual void PreviewBegins() = 0;
  virtual void DocumentBegins() = 0;
  virtual void DocumentEnds() = 0;
  virtual void PrintBegins() = 0;
  // What became of it stands in the outcome. The message about a refusal comes afterwards.
  virtual void PrintEnds() = 0;
  virtual void CallEnds() = 0;
};

}  // namespace td
