// What became of a document, for the program that had it printed.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace td {

enum class Delivery {
  kNone,       // nobody asked for a print, or the run made no document
  kPrinter,    // all pages were handed to the printing system
  kFile,       // the user chose a file in the printer dialog, and it was written
  kSink,       // the program's own sink took it
  kCancelled,  // the user closed the printer dialog without printing
  kRefused,    // it couldn't be handed over, or not whole: `reason` says why
};

struct DocumentOutcome {
  int pages = 0;  // that the run has finished
  Delivery delivery = Delivery::kNone;
  std::string printer;    // that was chosen; empty: none was asked
  std::vector<int> jobs;  // their numbers in the printing system; pages on different sheets are
                          // jobs of their own, in the document's order
  std::string file;       // that was written in a printer's place, as far as it is known
  std::string reason;     // of a refusal, as it is shown
  int messages = 0;       // shown since the print call began, in whatever way
  std::vector<std::string> texts;       // of these messages, in their order
  std::vector<std::string> places;      // where the print was at each of them, in words, or empty
  std::vector<std::string> complaints;  // what the document goes on without, in words

  // Whether all pages that were asked for have gone where they were to go.
  [[nodiscard]] bool IsDelivered() const {
    return delivery == Delivery::kPrinter || delivery == Delivery::kFile ||
           delivery == Delivery::kSink;
  }
};

// A document of so many pages that was not printed yet; what was said of it stays.
inline void BeginOutcome(DocumentOutcome& outcome, int pages) {
  DocumentOutcome begun;
  begun.pages = pages;
  begun.messages = outcome.messages;
  begun.texts = std::move(outcome.texts);
  begun.places = std::move(outcome.places);
  begun.complaints = std::move(outcome.complaints);
  outcome = std::move(begun);
}

}  // namespace td
