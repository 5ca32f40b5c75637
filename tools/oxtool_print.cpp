// Printing of variables and datasets as readable tables.
#include "oxtool_print.h"

#include <string>
#include <vector>

#include "OxClassLib.h"

namespace {

const int kCellWidth = 16;

// A cell's text cut to the column width, with "(null)" for a null value.
std::string CellText(const Ox_Variant *value) {
  if (!value || value->GetType() == 0) return "(null)";
  Ox_AString text;
  value->ToString(text);
  std::string cell(text.GetString(), text.GetLength());
  if (static_cast<int>(cell.size()) > kCellWidth)
    cell = cell.substr(0, kCellWidth - 1) + "~";
  return cell;
}

void PrintCells(FILE *out, const char *label, const std::vector<std::string> &cells) {
  std::fprintf(out, "  %-8s", label);
  for (const std::string &cell : cells)
    std::fprintf(out, " %-*s", kCellWidth, cell.c_str());
  std::fprintf(out, "\n");
}

}  // namespace

const char *RowTypeWord(int rowType) {
  switch (rowType) {
    case 1: return "normal";
    case 2: return "insert";
    case 4: return "update";
    case 8: return "delete";
    case 16: return "sum";
    default: return "?";
  }
}

void PrintVariables(FILE *out, const Ox_VariableList &variables) {
  std::fprintf(out, "  %d variable(s)\n", variables.Count());
  for (int i = 0; i < variables.Count(); ++i) {
    const Ox_Variable *variable = variables.GetItem(i);
    if (!variable) continue;
    std::fprintf(out, "  %-16s %-9s %s\n", variable->id.GetString(),
                 variable->var.GetTypeString(), CellText(&variable->var).c_str());
  }
}

void PrintDataset(FILE *out, const Ox_Dataset &dataset) {
  const int columns = dataset.GetColCount();
  const int rows = dataset.GetRowCount();
  std::fprintf(out, "  dataset \"%s\": %d column(s), %d row(s), code page %u\n",
               dataset.id.GetString(), columns, rows,
               dataset.GetCurrentCodePage());
  std::vector<std::string> header;
  for (int col = 0; col < columns; ++col) {
    const Ox_ColInfo *info = dataset.GetColInfo(col);
    std::string name = dataset.GetColID(col).GetString();
    name += info ? std::string(":") + Ox_ColList::GetTypeStr(info->type) : ":const";
    header.push_back(name);
  }
  PrintCells(out, "row type", header);
  for (int row = 0; row < rows; ++row) {
    std::vector<std::string> cells;
    for (int col = 0; col < columns; ++col)
      cells.push_back(CellText(dataset.GetColumn(row, col)));
    const int rowType = dataset.GetRowType(row);
    PrintCells(out, RowTypeWord(rowType), cells);
    if (rowType != 4) continue;
    std::vector<std::string> originals;
    for (int col = 0; col < columns; ++col)
      originals.push_back(CellText(dataset.GetOrgColumn(row, col)));
    PrintCells(out, " (was)", originals);
  }
  const int deleted = dataset.GetDelRowCount();
  for (int n = 0; n < deleted; ++n) {
    std::vector<std::string> cells;
    for (int col = 0; col < columns; ++col)
      cells.push_back(CellText(dataset.GetDelColumn(n, col)));
    PrintCells(out, "delete", cells);
  }
}
