/* The class QbTdPrinter.Session, called directly. */
#ifndef QBTDPRINTER_SESSION_INTERFACE_H
#define QBTDPRINTER_SESSION_INTERFACE_H

#include "interface/printer_interface.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Who sees the messages of a session's prints. The session has their texts in any case. */
enum {
  TD_MESSAGES_SHOWN = 0,             /* a box where there is a display, else as the next one */
  TD_MESSAGES_ON_STANDARD_ERROR = 1, /* a line for each */
  TD_MESSAGES_COLLECTED = 2          /* nobody */
};

/* Prints bills as TdPrinter does, to an output of the program's choice, and tells afterwards what
 * became of the document. What a session is told holds for its own prints alone, until it is told
 * otherwise; the request state is that of all printers. */
typedef struct TdSession {
  const struct TdSessionTable* table;
} TdSession;
typedef struct TdSessionTable {
  TD_DISPATCH_OPERATIONS(TdSession)
  /* A print call fails with number 380, and stores nothing, when the session was sent to a printer
   * that isn't installed. */
  TD_PRINT_OPERATIONS(TdSession)

  /* Where the documents go from now on; in a preview, when its user prints. The last of the four
   * counts. An empty text, and a session that was told nothing: the printer that the format
   * chooses. Files are replaced whole or not at all. Without a display, too. */
  TdResult(TD_CALL* ToPrinter)(TdSession* self, TdString Name);
  TdResult(TD_CALL* ToPdf)(TdSession* self, TdString File);
  /* One file for each page: page-001.png and so on. 1 to 2400 dots, 0: 150. */
  TdResult(TD_CALL* ToPng)(TdSession* self, TdString Folder, double DotsPerInch);
  /* One file that needs no other. */
  TdResult(TD_CALL* ToHtml)(TdSession* self, TdString File);

  /* Property put: TD_MESSAGES_SHOWN, which holds at first, or one of the others. */
  TdResult(TD_CALL* MessageMode)(TdSession* self, int32_t NewValue);
  /* Property put: seconds for which a print waits for rows and tables that others have locked,
   * print data included. Then it ends with a message, and nothing is printed. 0: not at all;
   * negative, as at first: without limit. */
  TdResult(TD_CALL* LockWaitLimit)(TdSession* self, double NewValue);
  /* Property put: an object that is called by name while a print runs. It may have either method:
   *   OnPage(page)          the page of that number is finished
   *   OnLockWait(seconds)   something is locked, and was for that long; called after each try
   * The answer False (TD_BOOLEAN) ends the print with a message, and nothing is printed; an
   * exception does so with its description. Null: nobody is called. The session keeps a reference.
   */
  TdResult(TD_CALL* Progress)(TdSession* self, TdDispatch* NewValue);
  /* Property put: whether Explanation tells what became of each item of the format. At first it
   * doesn't: a print then looks each column up twice. */
  TdResult(TD_CALL* Explain)(TdSession* self, TdFlag NewValue);
  /* Property put: the file to which a line is added for each print call; see the docs. Empty: none.
   * At first: the one in the environment variable QBTDPRINTER_LOG_FILE. */
  TdResult(TD_CALL* LogFile)(TdSession* self, TdString NewValue);
  /* Ends the print of this session that runs, if one does, at its next page, row, or try of what is
   * locked, with a message; nothing is printed. On any thread. */
  TdResult(TD_CALL* Cancel)(TdSession* self);

  /* Property gets: what became of the session's last print call. */
  /* Whether all pages that were asked for have gone where they were to go. */
  TdResult(TD_CALL* Delivered)(TdSession* self, TdFlag* value);
  /* "printed", "written" (to a file), "cancelled" (in the printer dialog), "refused" (not handed
   * over, or not whole), "not printed"; empty before the first call. */
  TdResult(TD_CALL* Result)(TdSession* self, TdString* value);
  /* Of a refusal, in the words of the message. */
  TdResult(TD_CALL* Reason)(TdSession* self, TdString* value);
  /* How many pages the run has finished. */
  TdResult(TD_CALL* Pages)(TdSession* self, int32_t* value);
  TdResult(TD_CALL* PrinterName)(TdSession* self, TdString* value);
  /* The document's number in the printing system, 0 if there is none; Jobs has all of them with
   * blanks between them: pages on different sheets are jobs of their own. */
  TdResult(TD_CALL* JobNumber)(TdSession* self, int32_t* value);
  TdResult(TD_CALL* Jobs)(TdSession* self, TdString* value);
  /* The messages, one by one, counted from 1 (number 9 for another index), and together, with line
   * feeds between them. */
  TdResult(TD_CALL* MessageCount)(TdSession* self, int32_t* value);
  TdResult(TD_CALL* Message)(TdSession* self, int32_t Index, TdString* value);
  TdResult(TD_CALL* Messages)(TdSession* self, TdString* value);
  /* Where the print was at a message: format, band, item, column, bill, row and page, as far as
   * they are known, in the language of the process's locale. */
  TdResult(TD_CALL* MessagePlace)(TdSession* self, int32_t Index, TdString* value);
  /* What the document goes on without, such as a paper code that nobody knows, in the same way. */
  TdResult(TD_CALL* Complaints)(TdSession* self, TdString* value);
  /* What became of each item of the format, and why, with Explain; empty without. As lines for an
   * administrator, in the language of the process's locale, and as a JSON object. */
  TdResult(TD_CALL* Explanation)(TdSession* self, TdString* value);
  TdResult(TD_CALL* ExplanationJson)(TdSession* self, TdString* value);
} TdSessionTable;

#ifdef __cplusplus
}
#endif

#endif
