// What a program chooses for the print windows that it gets.
#pragma once

#include <functional>
#include <string>

#include "print_calls/document_outcome.h"

namespace td {

class CallListener;
class PageDocument;
class PrintStop;

struct FrameSettings {
  // Takes every document until a user chooses another in the page setup; empty: the document's own
  // printer does.
  std::string printer;
  std::string stateDirectory;  // of the export file; empty: DefaultStateFolder()
  // Takes a finished document in the place of any printer, if it is set.
  std::function<void(const PageDocument&)> documentSink;
  std::string sinkTarget;  // what the sink writes to
  // Whether jobs make up for what this machine knows of their printer.
  bool calibrated = true;
  // Called with the number of each page, from 1, when the run has finished it, if it is set. What
  // it throws stops the print.
  std::function<void(int page)> onPage;
  // Called when a document has gone to its printer, or to the sink, if it is set.
  std::function<void()> onPrinted;
  // Takes what a document goes on without, once for each text and print window; a line on standard
  // error if it is not set.
  std::function<void(const std::string& text)> onComplaint;
  // Told what becomes of each document, if there is one; outlives the frames.
  DocumentOutcome* outcome = nullptr;
  // What ends a run of theirs before its time, if there is one; outlives the frames.
  PrintStop* stop = nullptr;
  // Told of the print calls, if there is one; outlives the frames.
  CallListener* listener = nullptr;
};

}  // namespace td
