// The first binary stream form: one variable list and the datasets of a
// dataset list in one buffer, integers in network byte order, texts in the
// stream's code page.
#ifndef OX_BINSTREAM_H
#define OX_BINSTREAM_H

#include "Ox_BaseLib.h"
#include "Ox_Dataset.h"
#include "Ox_Variable.h"

// Empties `buffer` and writes the part count (datasets plus one), the
// variable list and each dataset in list order, with save type 0 (all rows
// as normal rows), 1 (all rows with their types, then the deleted rows) or
// 2 (inserted and updated rows, then the deleted rows). A code page of 0 is
// the locale's. Version 4000 or more writes every block in the second
// form. The size of the finished buffer.
OX_API int OxBinStreamSave(const Ox_VariableList &vars,
                           Ox_DatasetList &datasets, Ox_Buffer &buffer,
                           unsigned int codePage, int version, int saveType);

// Empties both lists and reads a stream of either form. The number of
// datasets; a negative value on failure (0x83B10209 for a part count of 0).
OX_API int OxBinStreamLoad(Ox_VariableList &vars, Ox_DatasetList &datasets,
                           const Ox_Buffer &buffer, unsigned int codePage);

#endif
