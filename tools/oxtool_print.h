// Printing of variables and datasets as readable tables, shared by
// `oxtool demo` and `oxtool dump`.
#ifndef OXTOOL_PRINT_H
#define OXTOOL_PRINT_H

#include <cstdio>

class Ox_Dataset;
class Ox_VariableList;

// The word for a row type: "normal", "insert", "update", "delete", "sum".
const char *RowTypeWord(int rowType);

// One line per variable: name, type and value.
void PrintVariables(FILE *out, const Ox_VariableList &variables);

// The dataset's columns, then one line per visible row with its row type
// and, for an updated row, the original values beneath it; then the
// deleted rows kept for the save.
void PrintDataset(FILE *out, const Ox_Dataset &dataset);

#endif
