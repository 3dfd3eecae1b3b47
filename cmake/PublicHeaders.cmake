# The headers that a program may include which uses the installed component. They need neither Qt
# nor a database library.
set(qbtd_public_headers
  adapters/desktop/desktop_platform.h
  adapters/memory_rows/column_names.h
  adapters/memory_rows/memory_recordset.h
  adapters/page_document/document_host.h
  adapters/page_document/drawing.h
  adapters/page_document/page_document.h
  adapters/page_document/paper.h
  adapters/qt/render/outputs.h
  server/client/client.h
  server/client/recordsets.h
  server/interface/binary_interface.h
  src/platform/barcode.h
  src/platform/database.h
  src/platform/dialog.h
  src/platform/failure.h
  src/platform/pictures.h
  src/platform/platform.h
  src/platform/print_surface.h
  src/platform/value.h
  src/platform/windows.h
  src/service/printer.h
  src/service/td_set.h
  src/text/amount_in_words.h
  src/text/conversions.h
  src/text/format_value.h)
