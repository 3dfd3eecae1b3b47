/* Prints an order into a PDF file through the module QbTdPrinter, from C, without a display and
 * without a printer, and says in its own words what became of it.
 *
 *   tdprint register                                            once for each user
 *   order_to_pdf sqlite:sample.db 21 "select * from v_sales_order where FInterID=21002" order.pdf
 *
 * The class QbTdPrinter.Session prints as QbTdPrinter.Printer does, to an output of the program's
 * choice. Its messages are collected here, so that nobody but the program sees them.
 */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "client/client.h"
#include "client/recordsets.h"

/* A text that the session answers with, to be given to free(). */
static char* TextOf(TdDispatch* session, const char* property) {
  TdVariant value;
  char* text = NULL;
  if (!TD_FAILED(TdGet(session, property, &value, NULL)) && value.type == TD_STRING) {
    text = TdTextOfString(value.value.string);
  }
  TdClearVariant(&value);
  return text;
}

static int NumberOf(TdDispatch* session, const char* property) {
  TdVariant value;
  int number = 0;
  if (!TD_FAILED(TdGet(session, property, &value, NULL)) && value.type == TD_INT32) {
    number = value.value.integer32;
  }
  TdClearVariant(&value);
  return number;
}

/* Calls a method with one text. */
static TdResult CallWithText(TdDispatch* session, const char* method, const char* text,
                             TdExceptionInfo* info) {
  TdVariant argument = TdTextVariant(text);
  TdResult result = TdCall(session, method, &argument, 1, NULL, info);
  TdClearVariant(&argument);
  return result;
}

static TdResult Print(TdDispatch* session, const char* connection, int billType, TdDispatch* rows,
                      TdExceptionInfo* info) {
  TdVariant arguments[] = {TdFlagVariant(1), TdTextVariant(connection), TdIntegerVariant(billType),
                           TdFlagVariant(0), TdFlagVariant(0),          TdDispatchVariant(rows)};
  const uint32_t count = sizeof arguments / sizeof *arguments;
  TdResult result = TdCall(session, "DoPrint", arguments, count, NULL, info);
  for (uint32_t i = 0; i < count; ++i) TdClearVariant(&arguments[i]);
  return result;
}

/* An error of a call: what was asked for could not even begin. */
static void TellError(const char* what, TdExceptionInfo* info) {
  char* description = TdTextOfString(info->description);
  fprintf(stderr, "Sorry, %s: %s\n", what,
          description != NULL ? description : "no reason was given");
  free(description);
  TdClearException(info);
}

/* What became of the document. Messages may also come with one that was written: a part of the bill
 * may be missing then. */
static int TellResult(TdDispatch* session, const char* file) {
  char* result = TextOf(session, "Result");
  char* messages = TextOf(session, "Messages");
  const int isWritten = result != NULL && strcmp(result, "written") == 0;
  const int hasMessages = messages != NULL && messages[0] != '\0';
  if (isWritten) {
    printf("Your order is in %s: %d page(s).\n", file, NumberOf(session, "Pages"));
  } else {
    fprintf(stderr, "Sorry, there is no %s.\n", file);
  }
  if (hasMessages) fprintf(stderr, "Please show this to your administrator:\n%s\n", messages);
  free(result);
  free(messages);
  return isWritten && !hasMessages;
}

static int PrintInto(TdDispatch* session, char** argv) {
  TdExceptionInfo info = {0};
  TdDispatch* rows = NULL;
  /* Ten seconds are enough for another program's lock; without this a print waits for ever. */
  TdPut(session, "LockWaitLimit", TdNumberVariant(10), NULL);
  TdPut(session, "MessageMode", TdIntegerVariant(TD_MESSAGES_COLLECTED), NULL);
  if (TD_FAILED(CallWithText(session, "ToPdf", argv[4], &info))) {
    TellError("the file can't be chosen", &info);
    return 0;
  }
  if (TD_FAILED(TdOpenRecordset(argv[1], argv[3], &rows, &info))) {
    TellError("the order can't be read", &info);
    return 0;
  }
  TdResult result = Print(session, argv[1], atoi(argv[2]), rows, &info);
  rows->table->Release(rows); /* the component has a reference of its own */
  if (TD_FAILED(result)) {
    TellError("the order can't be printed now", &info);
    return 0;
  }
  return TellResult(session, argv[4]);
}

int main(int argc, char** argv) {
  if (argc != 5) {
    fprintf(stderr, "usage: order_to_pdf CONNECTION BILL_TYPE SQL PDF\n");
    return 2;
  }
  TdExceptionInfo info = {0};
  TdDispatch* session = NULL;
  if (TD_FAILED(TdCreateObject(TD_SESSION_CLASS_NAME, &session, &info))) {
    TellError("the print component isn't there", &info);
    return 1;
  }
  const int isDone = PrintInto(session, argv);
  session->table->Release(session);
  TdUnloadUnusedModules();
  return isDone ? 0 : 1;
}
