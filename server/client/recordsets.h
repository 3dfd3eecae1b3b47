/* Record sets for the print component, as objects that answer by name EOF, Fields(name).Value,
 * MoveNext, MoveFirst and Clone, and have the direct interface TdRecordset. For C and C++; texts
 * are UTF-8. An object is to be used by one thread at a time.
 *
 * Both functions give a counted object on its first row. They fail with a result code and, unless
 * `info` is null, number and description.
 */
#ifndef QBTDPRINTER_RECORDSETS_H
#define QBTDPRINTER_RECORDSETS_H

#include "interface/binary_interface.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The rows of a query. `connection` is a connection text as DoPrint takes it. */
TdResult TdOpenRecordset(const char* connection, const char* sql, TdDispatch** recordset,
                         TdExceptionInfo* info);

/* Rows in memory: `rowCount` times `columnCount` values, row by row. The values are copied. */
TdResult TdMakeRecordset(const char* const* columns, uint32_t columnCount, const TdVariant* values,
                         uint32_t rowCount, TdDispatch** recordset, TdExceptionInfo* info);

#ifdef __cplusplus
}
#endif

#endif
