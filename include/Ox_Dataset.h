// Ox_Dataset: the in-memory table, with its column descriptions and lists.
//
// A dataset has normal columns (Ox_ColInfo in an Ox_ColList, one cell per
// row) and constant columns (named values, one value for the whole
// dataset). Column numbers form one range: the normal columns first, then
// the constant columns, so constant k has number normal count + k.
//
// A dataset is physical (it owns its rows) or logical (a view bound to
// another dataset); a group dataset with its group flag set is both. Column
// operations walk the bind chain to the dataset that owns the columns.
//
// Ox_Dataset is one class spread over several source files by concern;
// the member comment blocks below say which concern each group belongs to.
#ifndef OX_DATASET_H
#define OX_DATASET_H

#include "Ox_BaseLib.h"
#include "Ox_NamedStr.h"
#include "Ox_Variant.h"
#include "Ox_Variable.h"

class Ox_ColInfo;
class Ox_Dataset;
class Ox_Record;
class Ox_DomNodeList;

// ===========================================================================
// Column types and summary kinds

// Column type numbers, as every format writes them. 3, 6 and 7 are not
// column types; "LONG" is a long text, not an integer.
enum {
  OX_COLTYPE_STRING = 1,    // cells are strings (variant type 8)
  OX_COLTYPE_INT = 2,       // integers (3)
  OX_COLTYPE_DECIMAL = 4,   // doubles (5)
  OX_COLTYPE_CURRENCY = 5,  // currency (6)
  OX_COLTYPE_DATE = 8,      // date and time (7)
  OX_COLTYPE_BLOB = 9,      // bytes (13)
  OX_COLTYPE_URL = 10,      // strings
  OX_COLTYPE_LONG = 11,     // strings
  OX_COLTYPE_CHAR = 12      // strings
};

// Row types: the low byte of a record's status word.
enum {
  OX_ROW_NORMAL = 1,   // unchanged, or committed
  OX_ROW_INSERT = 2,   // added since the last commit
  OX_ROW_UPDATE = 4,   // changed; its original stands in orgBuff
  OX_ROW_DELETE = 8,   // deleted; found only in orgBuff
  OX_ROW_SUMMARY = 16  // summary row of a group
};

// Summary kinds: the high nibble of a column's summary word (summ & 0xF0),
// and the values of groupSumm.
enum {
  OX_SUMM_KIND_MASK = 0xF0,  // the kind's nibble of a summary word
  OX_SUMM_NONE = 0,       // the default rule
  OX_SUMM_DEFAULT = 16,   // summText on a lower level's group key
  OX_SUMM_COUNT = 32,     // number of detail rows
  OX_SUMM_COUNTNN = 48,   // number of non-null values
  OX_SUMM_SUM = 64,       // sum
  OX_SUMM_MAX = 80,       // maximum
  OX_SUMM_MIN = 96,       // minimum
  OX_SUMM_AVG = 112,      // average
  OX_SUMM_TEXT = 144      // summText
};

// ===========================================================================
// Column description

// Item handler of column lists, and the pool "Ox_ColInfo" (64 a block).
// Items are found by their identifier, ignoring case.
class OX_API Ox_ColInfoHandler : public Ox_ListObjHandler {
 public:
  constexpr Ox_ColInfoHandler();
  void *_InitItem(void *item) override;                   // InitWithMemory
  void _FreeItem(void *item) override;                    // FreeWithMemory
  void _AssignItem(void *target, void *source) override;  // Ox_ColInfo::Set
  int _CompareItem(void *item, void *key) override;       // identifier
};

class OX_API Ox_ColInfo {
 public:
  Ox_AString id;        // identifier; compared ignoring case
  short type;           // column type number, 1 by default
  short size;           // declared size, 0 by default
  short summ;           // summary word; summ & 0xF0 is the kind; 1 default
  short orgIdx;         // declaration order, -1 by default
  Ox_AString summText;  // text of the kinds "text" and "default"
  Ox_AString mapValue;  // XML attribute "MapValue"
  int reserved;         // copied by Set, otherwise unused
  short bindKind;       // 17 group key, 18 pivot key, 0 otherwise
  short groupSumm;      // summary kind in a group dataset, 64 by default
  Ox_AString bindcol;   // identifier of the column shown from the bound set
  short bindColIdx;     // index of bindcol in the bound dataset, -1 default

  Ox_ColInfo();
  explicit Ox_ColInfo(const Ox_AString &id);
  Ox_ColInfo(const Ox_ColInfo &other);
  Ox_ColInfo &operator=(const Ox_ColInfo &other);
  ~Ox_ColInfo();

  // Back to all defaults, the identifier empty.
  void Clear();
  // Copies every member.
  void Set(const Ox_ColInfo &other);
  void SetId(const Ox_AString &text);
  void SetId(const char *text, int length = -1);
  void SetOrgIdx(short order) { orgIdx = order; }
  int GetOrgIdx() const { return orgIdx; }

  // Identifier ignoring case, then the type difference, then the size
  // difference; 0 when all agree.
  int Compare(const Ox_ColInfo &other) const;
  // Identifier ignoring case.
  int Compare(const char *text) const;
  // The same as Compare: 0 means equal, whatever the operator's name says.
  int operator==(const char *text) const { return Compare(text); }
  int operator==(const Ox_ColInfo &other) const { return Compare(other); }

  static void InitWithMemory(Ox_ColInfo *item);
  static void FreeWithMemory(Ox_ColInfo *item);

  // What GetItemNN gives in place of a null pointer; never written.
  static const Ox_ColInfo _OxNullColInfo;
  // The shared handler and pool of column descriptions.
  static Ox_ColInfoHandler _OxColInfoHandler;
};

constexpr Ox_ColInfoHandler::Ox_ColInfoHandler()
    : Ox_ListObjHandler("Ox_ColInfo", sizeof(Ox_ColInfo), 64) {}

// ===========================================================================
// Column list

class OX_API Ox_ColList : public Ox_ObjList {
 public:
  // With 1 (the default) the identifiers are kept unique.
  Ox_ColList();
  explicit Ox_ColList(int unique);
  Ox_ColList(const Ox_ColList &other);
  Ox_ColList &operator=(const Ox_ColList &other);
  ~Ox_ColList();

  const Ox_ColInfo *GetItem(int index) const;     // null out of range
  Ox_ColInfo *GetSafeItem(int index);             // null out of range
  const Ox_ColInfo *GetItemNN(int index) const;   // _OxNullColInfo then
  const Ox_ColInfo *operator[](int index) const { return GetItemNN(index); }
  // First column declared at `order` (its orgIdx), by a linear search.
  const Ox_ColInfo *GetItemByOrgIdx(int order) const;
  int GetIndexByOrgIdx(int order) const;          // -1 if none
  // Position by identifier, ignoring case; -1 if none.
  int FindId(const char *id) const;

  // A copy (Add, AddColumn) or the object itself (AddLink). -1 for null,
  // else the position; on a unique list an existing identifier gives its
  // position and adds nothing. `added` is 1 when the count grew.
  int Add(const Ox_ColInfo *column);
  int AddColumn(const Ox_ColInfo *column) { return Add(column); }
  int AddLink(const Ox_ColInfo *column);
  int Add(const Ox_ColInfo *column, int &added);
  int AddLink(const Ox_ColInfo *column, int &added);
  // Replace at a position; 0 when done.
  int Set(int index, const Ox_ColInfo &column);
  int SetLink(int index, const Ox_ColInfo *column);
  // 0 for a null list, else the resulting count.
  int Assign(const Ox_ColList *other);
  int Append(const Ox_ColList *other);
  void Clear() { ReleaseList(); }

  // Column type of a name by case-insensitive prefixes; 1 if none.
  static int GetTypeNo(const char *name);
  // Name of a column type; "STRING" for every number not in the table.
  static const char *GetTypeStr(int type);

  // Summary vocabulary of the text formats. The XML and CSV words differ
  // for the sum ("sum" and "summ"); the kind "text" is "text:" and the
  // text in XML. Unknown kinds and 0 give null.
  static const char *GetSummXmlWord(int kind);
  static const char *GetSummCsvWord(int kind);
  // The kind of a word (an XML word "text:..." is the text kind); 0 if none.
  static int GetSummKindByXmlWord(const char *word);
  static int GetSummKindByCsvWord(const char *word);
  // The text of the kind "default" by the locale's language: the word for
  // subtotal in Korean, or in Chinese and Japanese, each in code page
  // 949, and "subtotal" otherwise.
  static const char *GetDefaultSummText();

  // First binary stream form (dataset_binstream.cpp). Save appends the
  // block (magic 0xFF08, version, count, then per column in declaration
  // order its id, type, size and, from 3100 on, summary word and text)
  // and returns the position behind it, or -1. Load empties the list and
  // returns the position behind the block: the buffer's size when it ends
  // early, -1 for a wrong magic.
  int Save(Ox_Buffer &buffer, unsigned int codePage, int version) const;
  int Load(const Ox_Buffer &buffer, int position, unsigned int codePage);
};

// ===========================================================================
// Rows (the row store completes these classes)

// Item handler of row lists, and the pool "Ox_Record" (128 a block).
class OX_API Ox_RecordHandler : public Ox_ListObjHandler {
 public:
  constexpr Ox_RecordHandler();
  void *_InitItem(void *item) override;                   // InitWithMemory
  void _FreeItem(void *item) override;                    // FreeWithMemory
  void _AssignItem(void *target, void *source) override;  // Assign
  int _CompareItem(void *item, void *key) override;       // same pointer
};

// One row: its cells side by side, a status word and the original's place.
class OX_API Ox_Record : public Ox_VariantBufList {
 public:
  int status;  // low byte the row type; 0x100 filtered out; 0x1000 selected
  int orgRef;  // buffer row of the original (update), or where to restore

  Ox_Record();
  explicit Ox_Record(int cells);  // that many null cells
  Ox_Record(const Ox_Record &other);
  Ox_Record &operator=(const Ox_Record &other);
  ~Ox_Record();

  // Takes the source's row type (not its filter and selection bits),
  // orgRef and cells; nothing on self.
  void Assign(const Ox_Record *source);
  // Drops the cells; status 1, orgRef -1.
  void Clear();
  int GetType() const { return status & 0xFF; }
  void SetType(int rowType) { status = (status & 0xFF00) | (rowType & 0xFF); }
  int GetFilter() const { return status & 0x100; }
  void SetFilter(int on) { status = (status & ~0xF00) | (on ? 0x100 : 0); }
  int GetSelect() const { return status & 0x1000; }
  void SetSelect(int on) { status = (status & ~0xF000) | (on ? 0x1000 : 0); }
  int GetOrgIdx() const { return orgRef; }
  void SetOrgIdx(short index) { orgRef = index; }
  // Grows the row to col + 1 cells if shorter, then sets the cell.
  void SetColumn(int col, const Ox_Variant *value);
  // Writable cell, growing the row if needed; null for a negative col.
  Ox_Variant *GetSafeItem(int col);

  static void InitWithMemory(Ox_Record *item);
  static void FreeWithMemory(Ox_Record *item);

  // First binary stream form (dataset_binstream.cpp): cell count, row
  // type (`type`'s low byte; -1 the record's own), orgRef, then each cell.
  // Save returns the end position, or -1. Load returns the position behind
  // the record, the buffer's size when it ends early, or a negative value
  // for a cut cell, which also clears the record.
  int Save(Ox_Buffer &buffer, int type, unsigned int codePage) const;
  int Load(const Ox_Buffer &buffer, int position, unsigned int codePage);

  static const Ox_Record _OxNullRecord;
  static Ox_RecordHandler _OxRecordHandler;
};

constexpr Ox_RecordHandler::Ox_RecordHandler()
    : Ox_ListObjHandler("Ox_Record", sizeof(Ox_Record), 128) {}

// The rows of a dataset, by pointer; a row linked into a second list stays
// alive until the last list lets go of it.
class OX_API Ox_RecList : public Ox_ObjList {
 public:
  Ox_RecList();
  Ox_RecList(const Ox_RecList &other);
  ~Ox_RecList();

  int Add(const Ox_Record *row);  // a copy; null adds an empty row
  int AddLink(const Ox_Record *row);
  int Insert(int index, const Ox_Record *row);
  int InsertLink(int index, const Ox_Record *row);
  long Set(int index, const Ox_Record *row, int grow = 0);
  long SetLink(int index, const Ox_Record *row, int grow = 0);
  int Assign(const Ox_RecList *other);  // the resulting count
  Ox_Record *GetItem(int index) const;
  const Ox_Record *GetItemNN(int index) const;  // an empty row then
  const Ox_Record *operator[](int index) const { return GetItemNN(index); }
  void Clear() { ReleaseList(); }

  // Every row with at least `col` cells gets a null cell at `col`; shorter
  // rows stay as they are.
  void InsertColumn(int col);
};

// ===========================================================================
// Dataset

// Item handler of dataset lists, and the pool "Ox_Dataset" (32 a block).
class OX_API Ox_DatasetHandler : public Ox_ListObjHandler {
 public:
  constexpr Ox_DatasetHandler();
  void *_InitItem(void *item) override;                   // InitWithMemory
  void _FreeItem(void *item) override;                    // FreeWithMemory
  void _AssignItem(void *target, void *source) override;  // AssignNF
  int _CompareItem(void *item, void *key) override;       // identifier
};

class OX_API Ox_Dataset {
 public:
  // --- Whole object (dataset_core.cpp) ------------------------------------
  // Code page of the locale.
  Ox_Dataset();
  // `colFlag` goes to the column list (1: unique identifiers).
  explicit Ox_Dataset(unsigned int codePage, int colFlag = 1);
  explicit Ox_Dataset(const Ox_AString &id, unsigned int codePage = 0);
  explicit Ox_Dataset(const char *id, unsigned int codePage = 0);
  ~Ox_Dataset();
  // A dataset holds pointers into itself: it is not copied as a value.
  Ox_Dataset(const Ox_Dataset &) = delete;
  Ox_Dataset &operator=(const Ox_Dataset &) = delete;

  void SetId(const Ox_AString &text);
  void SetId(const char *text, int length = -1);
  // A change to another non-zero page empties the dataset first.
  void SetCurrentCodePage(unsigned int cp);
  unsigned int GetCurrentCodePage() const { return codePage; }
  // Drops rows, columns, constants and indexes; keeps identity, code page,
  // kind, binding and the group, pivot and filter texts.
  void ClearAll();

  int IsLogical() const { return logicalType >= 32; }
  int IsPhysical() const {
    return logicalType < 32 || (logicalType == 35 && groupFlag != 0);
  }
  int IsGroup() const { return logicalType == 35 && groupFlag != 0; }
  int IsPivot() const { return logicalType == 33 && pivotFlag != 0; }

  int GetAutoRecalcStat() const { return autoRecalc; }
  void SetAutoRecalcStat(int on) { autoRecalc = on; }

  // Reserved members: they do nothing.
  int Change2CodePage(unsigned int) { return 1; }
  int RecalcFilter() { return 1; }
  int ModifyKeyStat(int, int, Ox_AString, int, int) { return 1; }
  int fnIntReserved0(int, int, int, int, int, int) { return 0; }
  int fnIntReserved1(int, int, int, int, int, int) { return 0; }
  int fnIntReserved2(int, int, int, int, int, int) { return 0; }
  int fnIntReserved3(int, int, int, int, int, int) { return 0; }
  void *fnPtrReserved0(void *) { return nullptr; }
  void *fnPtrReserved1(void *) { return nullptr; }
  void *fnPtrReserved2(void *) { return nullptr; }
  void *fnPtrReserved3(void *) { return nullptr; }

  static void InitWithMemory(Ox_Dataset *item);
  static void FreeWithMemory(Ox_Dataset *item);

  // What Ox_DatasetList::GetItemNN gives in place of null; never written.
  static const Ox_Dataset _OxNullDataset;
  // The shared handler and pool of datasets.
  static Ox_DatasetHandler _OxDatasetHandler;

  // --- Columns (dataset_columns.cpp) --------------------------------------
  // Counts and lookups give -1 (identifiers _OxNullString, pointers null)
  // when the bind chain ends without a physical dataset.
  int GetColCount() const;
  int GetNormalCount() const;
  int GetConstCount() const;
  // Normal columns first, then constants (offset by the normal count).
  int GetColIndex(const char *id) const;
  // Position of the column declared at `order`; a constant's number is
  // itself.
  int GetColIdxByOrder(int order) const;
  const Ox_AString &GetColID(int col) const;
  const Ox_ColInfo *GetColInfo(int col) const;   // normal columns only
  Ox_ColInfo *GetSafeColInfo(int col);

  // Every AddColumn gives 0, and changes nothing, when the identifier is
  // already a normal or constant column; otherwise the new column's list
  // position. Rows get a null cell in the new column.
  int AddColumn(const Ox_AString &id, short type, short size, short summ);
  int AddColumn(const char *id, short type, short size, short summ);
  int AddColumn(const Ox_AString &id, short type, short size, short summ,
                const Ox_AString &bindcol, short groupSumm);
  int AddColumn(const char *id, short type, short size, short summ,
                const Ox_AString &bindcol, short groupSumm);
  // These two always add to this dataset's own lists.
  int AddColumn(const Ox_AString &id, short type, short size,
                const Ox_AString &mapValue, short summ);
  int AddColumn(const char *id, short type, short size, const char *mapValue,
                short summ);
  int AddColumn(const Ox_ColInfo *column);
  // AddColumn for each column of the list, then GetColCount.
  int AppendColList(const Ox_ColList *list);

  // The dataset that owns the columns: this one or, while it is not
  // physical, the one it is bound to; null when the chain breaks.
  const Ox_Dataset *_GetColOwner() const;
  Ox_Dataset *_GetColOwner();

  // --- Constant columns (dataset_consts.cpp) ------------------------------
  // A constant is a named value for the whole dataset; constant k has the
  // column number normal count + k. Reads follow the bind chain like the
  // other column lookups.
  // Identifier of constant k; _OxNullString out of range.
  const Ox_AString &GetConstColID(int k) const;
  // The constant's value; null if there is none.
  const Ox_Variant *GetConstColumn(const char *id) const;
  const Ox_Variant *GetConstColumn(int k) const;
  // Insert or replace, in the own constants of a physical dataset and in
  // *pConsts of a logical one; the result of Ox_VariableList::AddVariable
  // (index, or -1 for an empty name).
  int AddConstColumn(const Ox_AString &id, const Ox_Variant &value);
  int AddConstColumn(const Ox_AString &id, const Ox_Variant *value);
  int AddConstColumn(const char *id, const Ox_Variant &value);
  int AddConstColumn(const char *id, const Ox_Variant *value);
  // The same with a string value, through Ox_VariableList::AddStr (which
  // takes the whole zero-terminated text whatever the length says).
  int AddConstStr(const Ox_AString &id, const Ox_AString &text);
  int AddConstStr(const Ox_AString &id, const char *text, int length);
  int AddConstStr(const char *id, const Ox_AString &text);
  int AddConstStr(const char *id, const char *text, int length);
  // Writes this dataset's own constant: 1 when done; 0 on a logical
  // dataset (no route to the bound one), for an unknown identifier or a
  // number out of range. A null value pointer sets the constant to null.
  int SetConstColumn(const char *id, const Ox_Variant *value);
  int SetConstColumn(const char *id, long value);
  int SetConstColumn(const char *id, double value);
  int SetConstColumn(const char *id, const Ox_AString &value);
  int SetConstColumn(const char *id, const char *text, int length);
  int SetConstColumn(int k, const Ox_Variant *value);
  int SetConstColumn(int k, long value);
  int SetConstColumn(int k, double value);
  int SetConstColumn(int k, const Ox_AString &value);
  int SetConstColumn(int k, const char *text, int length);
  // A plain int literal would be ambiguous between long and double.
  int SetConstColumn(const char *id, int value) {
    return SetConstColumn(id, static_cast<long>(value));
  }
  int SetConstColumn(int k, int value) {
    return SetConstColumn(k, static_cast<long>(value));
  }

  // --- Row store (dataset_rows.cpp) --------------------------------------
  // Row numbers are visible rows (what filters and grouping leave, summary
  // rows included) unless the name has NF: then they are stored rows, the
  // positions in `recs`. A buffer row is a position in `orgBuff`.

  // Visible rows; -1 for a view with no bound dataset.
  int GetRowCount() const;
  // Without the filter index; a physical dataset gives the count of recs.
  int GetRowCountNF() const;
  // Entries of orgBuff on the physical dataset at the end of the bind chain.
  int GetOrgBuffCount() const;
  // Entries of orgBuff of type delete, and the buffer row of the n-th.
  int GetDelRowCount() const;
  int GetDelRowIdx(int n) const;
  // Rows of recs of type insert or update.
  int GetUpdateRowCount() const;
  // 1 when there are inserted rows or originals kept, else 0.
  int IsUpdated() const;
  // Change tracking: the setter gives the old value.
  int SetUpdate(int on);
  int GetUpdate() const { return updateFlag; }
  // Row types: 16 for a summary row, 0 for no row, -1 when no physical
  // dataset is reached.
  int GetRowType(int row) const;
  int GetRowTypeNF(int row) const;
  int GetOrgBuffType(int bufRow) const;
  // As GetRowType on this dataset only, with no range test of its own.
  int GetType(int row) const;
  // Replace the row type (not changeCount, not orgBuff): 1 done, 0 for a
  // view, a summary row or no row.
  int SetRowType(int row, int type);
  int SetRowTypeNF(int row, int type);
  void SetType(int row, int type);
  // orgRef of a row (through recIndex only), -1 for a view or no row.
  int GetOrgIdx(int row) const;
  int GetOrgIdxNF(int row) const;
  // The value a visible row resolves to (no range test), and the visible
  // row of a stored row (-1 when hidden).
  int GetRowIndex(int row) const;
  int GetRowIdxNF(int stored) const;
  // The row's record; _OxNullRecord for a summary row or no row.
  const Ox_Record &operator[](int row) const;
  // Row type of a `record` element by the first letter of its attribute
  // "type", ignoring case: I 2, D 8, U 4, anything else (or no list) 1.
  static int GetXmlTypeValue(const Ox_NamedStrList *attributes);

  // A new row (type insert when `mark` and tracking are on); the result is
  // its visible row, -1 on a view.
  int AppendRow(int mark = 1);
  int InsertRow(int row, int mark = 1);
  // Removes a row, keeping it in orgBuff when tracking is on.
  long DeleteRow(int row);
  int DeleteSelected();
  void DeleteAll();
  int MoveRow(int from, int to);
  int ExChangeRow(int a, int b);
  int ReverseRow();
  // Selection of visible rows.
  void SetSelect(int row, int on);
  int GetSelect(int row) const;
  int ClearSelect();
  // Accept all changes, or undo them all.
  void ApplyChange();
  void Reset();
  // The row index as the identity (pairs on a view), the filter index as
  // the identity over the row index, and one more pair in the row index.
  int ResetRecIndex();
  int ResetFilIndex();
  int AppendRowIndex(int value);

  // --- Cell access (dataset_cells_get.cpp, dataset_cells_set.cpp) --------
  // `pivotPos` is the position on the column axis of a pivot; every other
  // dataset ignores it and its callers pass -1. A column given by
  // identifier that is unknown gives the "nothing" of the reader: a null
  // pointer, `out` left as it was, or _OxNullVariant for the NN forms.
  // A pointer points into the row and is good until the next write. The
  // plain pointer readers may give a null pointer or a variant of type 0
  // for a null cell; the NN readers give _OxNullVariant instead of null,
  // except for the two exits of a summary row whose value must be
  // computed, which give null on every pointer reader.

  // Visible row. Row -1 with a constant's column number reads the constant.
  const Ox_Variant *GetColumn(int row, int col, int pivotPos = -1) const;
  const Ox_Variant *GetColumn(int row, const char *colId,
                              int pivotPos = -1) const;
  // By value: also computes the cells of summary rows.
  void GetColumn(int row, int col, Ox_Variant &out, int pivotPos = -1) const;
  void GetColumn(int row, const char *colId, Ox_Variant &out,
                 int pivotPos = -1) const;
  const Ox_Variant *GetColumnNN(int row, int col, int pivotPos = -1) const;
  const Ox_Variant *GetColumnNN(int row, const char *colId,
                                int pivotPos = -1) const;
  // Stored row, ignoring filter and grouping.
  const Ox_Variant *GetColumnNF(int row, int col, int pivotPos = -1) const;
  const Ox_Variant *GetColumnNF(int row, const char *colId,
                                int pivotPos = -1) const;
  // `out` stays as it was for nothing; on a view it becomes null.
  void GetColumnNF(int row, int col, Ox_Variant &out, int pivotPos = -1) const;
  void GetColumnNF(int row, const char *colId, Ox_Variant &out,
                   int pivotPos = -1) const;
  const Ox_Variant *GetColumnNFNN(int row, int col, int pivotPos = -1) const;
  const Ox_Variant *GetColumnNFNN(int row, const char *colId,
                                  int pivotPos = -1) const;
  // Buffer row of orgBuff.
  const Ox_Variant *GetOrgBuffColumn(int bufRow, int col) const;
  const Ox_Variant *GetOrgBuffColumn(int bufRow, const char *colId) const;
  const Ox_Variant *GetOrgBuffColumnNN(int bufRow, int col) const;
  const Ox_Variant *GetOrgBuffColumnNN(int bufRow, const char *colId) const;
  // The n-th deleted row.
  const Ox_Variant *GetDelColumn(int n, int col) const;
  const Ox_Variant *GetDelColumn(int n, const char *colId) const;
  const Ox_Variant *GetDelColumnNN(int n, int col) const;
  const Ox_Variant *GetDelColumnNN(int n, const char *colId) const;
  // The value a visible row had when last clean: its original when it has
  // one, else the present value.
  const Ox_Variant *GetOrgColumn(int row, int col) const;
  const Ox_Variant *GetOrgColumn(int row, const char *colId) const;
  const Ox_Variant *GetOrgColumnNN(int row, int col) const;
  const Ox_Variant *GetOrgColumnNN(int row, const char *colId) const;
  // The same by stored row.
  const Ox_Variant *GetOrgColumnNF(int row, int col) const;
  const Ox_Variant *GetOrgColumnNF(int row, const char *colId) const;
  const Ox_Variant *GetOrgColumnNFNN(int row, int col) const;
  const Ox_Variant *GetOrgColumnNFNN(int row, const char *colId) const;
  // Level of the first group key on column `col`, 0 when there is none or
  // no index is in force; `level` is not used.
  int GetGroupColType(int level, int col) const;

  // Writers: 1 done, 0 failure. A visible row; a constant's column number
  // writes the constant. On a view the write goes to the bound dataset.
  int SetColumn(int row, int col, const Ox_Variant *value, int pivotPos = -1);
  int SetColumn(int row, int col, long value, int pivotPos = -1);
  int SetColumn(int row, int col, double value, int pivotPos = -1);
  int SetColumn(int row, int col, const Ox_AString &value, int pivotPos = -1);
  int SetColumn(int row, int col, const char *text, int length,
                int pivotPos = -1);
  int SetColumn(int row, const char *colId, const Ox_Variant *value,
                int pivotPos = -1);
  int SetColumn(int row, const char *colId, long value, int pivotPos = -1);
  int SetColumn(int row, const char *colId, double value, int pivotPos = -1);
  int SetColumn(int row, const char *colId, const Ox_AString &value,
                int pivotPos = -1);
  int SetColumn(int row, const char *colId, const char *text, int length,
                int pivotPos = -1);
  // A plain int literal would be ambiguous between long and double.
  int SetColumn(int row, int col, int value, int pivotPos = -1) {
    return SetColumn(row, col, static_cast<long>(value), pivotPos);
  }
  int SetColumn(int row, const char *colId, int value, int pivotPos = -1) {
    return SetColumn(row, colId, static_cast<long>(value), pivotPos);
  }
  // Stored row of this dataset's own recs.
  int SetColumnNF(int row, int col, const Ox_Variant *value);
  int SetColumnNF(int row, int col, long value);
  int SetColumnNF(int row, int col, double value);
  int SetColumnNF(int row, int col, const Ox_AString &value);
  int SetColumnNF(int row, int col, const char *text, int length);
  int SetColumnNF(int row, const char *colId, const Ox_Variant *value);
  int SetColumnNF(int row, const char *colId, long value);
  int SetColumnNF(int row, const char *colId, double value);
  int SetColumnNF(int row, const char *colId, const Ox_AString &value);
  int SetColumnNF(int row, const char *colId, const char *text, int length);
  int SetColumnNF(int row, int col, int value) {
    return SetColumnNF(row, col, static_cast<long>(value));
  }
  int SetColumnNF(int row, const char *colId, int value) {
    return SetColumnNF(row, colId, static_cast<long>(value));
  }
  // The one writer of cells, by stored row of this dataset's own recs: the
  // value takes the column's cell type, and with tracking on the row moves
  // between normal and update. A constant's column number writes the
  // constant and touches no row.
  int UpdateColumn(int row, int col, const Ox_Variant *value);

  // --- Sort (dataset_sort.cpp) -------------------------------------------
  // The records themselves change place in recs (a swap moves one pointer);
  // there is no sorted view. Rows equal on all keys end in an order that
  // depends on the input order: the sort is not stable.

  // Sorts a physical dataset by a key string such as "COL1,COL2:D,COL3:A":
  // column identifiers ignoring case, each with an optional direction
  // (D descending, A ascending, anything else or none: ascending when
  // `ascending` is 1, else descending). With `nullsLast` 0 a null is less
  // than every value, else greater; a descending key turns that round too.
  // Afterwards the index list in force (filterIndex while filterActive,
  // else recIndex, if recIndexValid) is rebuilt from the filter bits, and
  // with `regroup` 1 the grouping is recomputed. 0 when every key was
  // known; -1 when any was not (the known ones still sort), for no key,
  // for more than 64 keys (nothing moves) and on a logical dataset.
  long Sort(const char *keys, int ascending, int nullsLast, int regroup);
  // Sorts stored rows `lo` to `hi`, both included, by the key table
  // (`cols[i]` below 0 is skipped; `dirs[i]` multiplies the comparison).
  // Always 0; a range outside the rows moves nothing.
  long _qsort(int *const cols, int ncols, int lo, int hi, int *const dirs,
              int nullsLast);
  // Negative, 0 or positive for stored rows `a` and `b` by the key table.
  int _CompareRecord(int *const cols, int ncols, int a, int b,
                     int *const dirs, int nullsLast);
  // Searches pairs `lo` to `hi - 1` of `list`, whose first integers are
  // stored rows of *pRecs sorted by column `col` in direction `dir`, for
  // `key`: the position found, or the negated insertion point.
  int _Fibonacci_Search(Ox_IntList *list, int lo, int hi, int col, int dir,
                        Ox_Variant *key);

  // --- Filter (dataset_filter.cpp, dataset_filter_find.cpp) -------------
  // Two levels hide rows from the visible numbering; the stored rows stay.
  // The first level is recIndex (while recIndexValid), the second
  // filterIndex (while filterActive), a sub-list of the first. A filter
  // call hides the row it names or the rows that match. The one condition
  // evaluated here is "column=text": the cell's text equals the text,
  // exactly. RecalcFilter (above) does nothing.

  // Hides one row at the first level: a stored row while no index is in
  // force, else a position in recIndex (summary rows stay). Always 0.
  long Filter(int row);
  // Hides every row whose cell matches; the first level is rebuilt by the
  // caller (or by Sort from the filter bits). -1 for a bad expression.
  long Filter(const char *expr);
  // Removes both levels. 0.
  long UnFilter();
  // Hides one position of the first level at the second level; -1 while
  // no first-level index is in force, else 0.
  long LocFilter(int row);
  // Hides every matching row of the first level at the second level; -1
  // while no first-level index is in force or for a bad expression.
  long LocFilter(const char *expr);
  // Removes the second level. 0.
  long LocUnFilter();
  // Keeps the caller's filter text and drops both indexes; a non-empty
  // text on a physical dataset leaves an empty first level in force for
  // the caller to fill. 1.
  int SetFilterStr(const Ox_AString &text);
  const Ox_AString &GetFilterStr() const { return filterStr; }
  // recIndexValid and filterActive, read and written alone.
  int GetFilterStat() const { return recIndexValid; }
  void SetFilterStat(int on) { recIndexValid = on; }
  int GetLocFilterStat() const { return filterActive; }
  void SetLocFilterStat(int on) { filterActive = on; }
  // On a view: the stored row of the bound dataset behind visible row
  // `row` (through filterIndex unless `skiploc`); -1 out of range.
  int GetRealFilterRowPos(int row, int skiploc) const;
  // The visible row of a view that shows stored row `stored` of the bound
  // dataset, -1 if none; a physical dataset gives `stored` back. The last
  // two arguments are not used.
  int FindFilterBindRowPos(int stored, int unused1 = 0, int unused2 = 0);
  // The row of a group dataset that stands for stored row `stored` of the
  // bound dataset, -1 if none; any other dataset gives `stored` back.
  int FindGroupBindRowPos(int stored, int unused1 = 0, int unused2 = 0);
  // Columns need no translation: these give their first argument.
  int FindFilterBindColPos(int col, int = 0, int = 0) { return col; }
  int FindGroupBindColPos(int col, int = 0, int = 0) { return col; }
  int FindPivotBindColPos(int col, int = 0, int = 0) { return col; }
  int FindPivotBindRowPos(int row, int = 0, int = 0) { return row; }

  // --- Aggregates and lookup (dataset_aggregates*.cpp, dataset_lookup.cpp)
  // A range is `first` included to `last` excluded. Every member scans:
  // nothing is indexed or cached. Members without NF take visible rows and
  // skip summary rows; NF members take stored rows. A column given by
  // identifier goes to the number overload through GetColIndex, so an
  // unknown identifier arrives as -1. `pivotPos` matters on pivots only.

  // Visible rows of level 0 in the range; `last` is capped to GetRowCount.
  int GetCount(int first, int last) const;
  // Sum: an integer when the cell at row `first` is an integer (32-bit,
  // wrapping), else a double; the double 0 for an empty range.
  void GetSum(int col, int first, int last, Ox_Variant &out,
              int pivotPos = -1) const;
  void GetSum(const char *colId, int first, int last, Ox_Variant &out,
              int pivotPos = -1) const;
  // The greatest (smallest) non-null cell, the value `out` holds on entry
  // taking part; pass a null `out` for the extreme of the range alone.
  void GetMax(int col, int first, int last, Ox_Variant &out,
              int pivotPos = -1) const;
  void GetMax(const char *colId, int first, int last, Ox_Variant &out,
              int pivotPos = -1) const;
  void GetMin(int col, int first, int last, Ox_Variant &out,
              int pivotPos = -1) const;
  void GetMin(const char *colId, int first, int last, Ox_Variant &out,
              int pivotPos = -1) const;
  // Sum divided by GetCount: null cells count in the divisor; 0 for none.
  double GetAvg(int col, int first, int last, int pivotPos = -1) const;
  double GetAvg(const char *colId, int first, int last,
                int pivotPos = -1) const;
  // The integer count of non-null cells.
  void GetCnn(int col, int first, int last, Ox_Variant &out,
              int pivotPos = -1) const;
  // Stored rows, no level test.
  void GetSumNF(int col, int first, int last, Ox_Variant &out,
                int pivotPos = -1) const;
  void GetSumNF(const char *colId, int first, int last, Ox_Variant &out,
                int pivotPos = -1) const;
  // Unlike GetMax and GetMin, a null cell takes part: it replaces the
  // running value, which starts again behind it.
  void GetMaxNF(int col, int first, int last, Ox_Variant &out,
                int pivotPos = -1) const;
  void GetMaxNF(const char *colId, int first, int last, Ox_Variant &out,
                int pivotPos = -1) const;
  void GetMinNF(int col, int first, int last, Ox_Variant &out,
                int pivotPos = -1) const;
  void GetMinNF(const char *colId, int first, int last, Ox_Variant &out,
                int pivotPos = -1) const;
  // GetSumNF divided by the length of the range (capped to GetRowCountNF).
  double GetAvgNF(int col, int first, int last, int pivotPos = -1) const;
  double GetAvgNF(const char *colId, int first, int last,
                  int pivotPos = -1) const;
  // Over the level 0 rows of a pivot's row axis, each by the pivot's
  // aggregate along that row; `filterflag` goes on to it.
  int GetCountNN(int col, int filterflag) const;
  void GetSumNN(int col, int filterflag, Ox_Variant &out) const;
  double GetAvgNN(int col, int filterflag) const;
  // Both keep the greatest value: GetMinNN of the row minimums.
  void GetMinNN(int col, int filterflag, Ox_Variant &out) const;
  void GetMaxNN(int col, int filterflag, Ox_Variant &out) const;

  // First row whose cell text equals `text` exactly (case counts); -1 if
  // none. A null cell never matches; an empty `text` finds an empty text.
  int LookupDataRow(const Ox_AString &col, const Ox_AString &text, int first,
                    int last) const;
  int LookupDataRowNF(const Ox_AString &col, const Ox_AString &text,
                      int first, int last) const;
  // The same by a pattern, case ignored: "abc" and "abc%" match a prefix,
  // "%abc" and "%abc%" a part anywhere, "%" any non-null cell.
  int LookupDataRowAs(const Ox_AString &col, const Ox_AString &pattern,
                      int first, int last) const;
  int LookupDataRowNFAs(const Ox_AString &col, const Ox_AString &pattern,
                        int first, int last) const;
  // Cell `valcol` of the first stored row whose `keycol` text equals
  // `text`; null if none (or if that cell is missing). A view asks its
  // bound dataset.
  const Ox_Variant *LookupDataText(const Ox_AString &keycol,
                                   const Ox_AString &text,
                                   const Ox_AString &valcol) const;
  // The same into `out`, which a null result clears; on a dataset linked
  // to a document `out` stays as it was when nothing matches.
  void LookupDataText(const Ox_AString &keycol, const Ox_AString &text,
                      const Ox_AString &valcol, Ox_Variant &out);

  // --- Binary stream, first form (interchange/dataset_binstream.cpp) -----
  // Head, rows (save type 0: all as normal rows; 1: all with their types,
  // then deleted rows; 2: inserted and updated rows, then deleted rows)
  // and a 4-byte zero. The end position; -1 unless IsPhysical.
  int Save(Ox_Buffer &buffer, int saveType, unsigned int codePage,
           int version);
  // Clears the dataset and reads a block of either form at `position`.
  // The end position (the buffer's size for a stream that ends early), or
  // a negative value.
  int Load(const Ox_Buffer &buffer, int position);
  // Rows from `firstRow` as one row block of normal rows; the count field
  // holds `rowCount` (or the rest), the records run to the last row.
  int SaveNext(Ox_Buffer &buffer, unsigned int codePage, int firstRow,
               int rowCount);
  // Reads one row block, appending to the rows; `rowCount` gets its count.
  int LoadNext(const Ox_Buffer &buffer, int position, int &rowCount);
  // Head and rows of either form from position 0; a non-zero `clear`
  // empties the dataset first.
  int LoadDataBin(const Ox_Buffer &buffer, int clear);

  // --- Data members, in their fixed order ---------------------------------
  // Identity.
  Ox_AString id;           // identifier; compared ignoring case in lists
  unsigned int codePage;   // code page of the dataset's strings
  // Own lists.
  Ox_VariableList constCols;  // constant columns
  Ox_ColList cols;            // normal columns
  Ox_RecList recs;            // the rows
  Ox_RecList orgBuff;         // originals of updated and deleted rows
  // Kind and binding.
  int logicalType;         // < 32 physical, 32 view, 33 pivot, 35 group
  int pivotFlag;           // a pivot key is in force
  Ox_Dataset *bindDataset; // bound dataset, not owned
  Ox_VariableList *pConsts;  // the lists in use: own, or the bound set's
  Ox_ColList *pCols;
  Ox_RecList *pRecs;
  Ox_RecList *pOrgBuff;
  // Pivot structures.
  Ox_PtrList colDepthList;  // key tree of the column axis
  Ox_PtrList rowDepthList;  // key tree of the row axis
  int depthValid;
  Ox_IntList colValueList;  // two integers per column-axis position
  Ox_IntList rowValueList;  // two integers per row-axis position
  int valueValid;
  Ox_PtrList pivotTable;    // one Ox_IntList per row-axis position
  int tableValid;
  Ox_IntList pivotPairList; // row leaf and column leaf per source row
  // Filter and row index.
  int filterActive;         // second-level filter in force
  Ox_IntList filterIndex;   // second-level filter index
  int reverseSubSum;        // summary rows stand before their details
  int changeCount;          // rows of type insert
  int recIndexValid;        // recIndex is in force
  Ox_IntList recIndex;      // row index
  // Grouping and pivot keys.
  int groupFlag;            // a group string is in force
  int updateFlag;           // change tracking on
  int singleGroupLevel;
  Ox_IntList groupKeyList;  // column in the low 24 bits, level in the high 8
  Ox_AString groupStr;
  Ox_IntList pivotColType;
  Ox_IntList pivotKeyList;
  Ox_AString pivotKeyStr;
  Ox_AString filterStr;
  int recalcEnabled;
  int autoRecalc;           // 1 by default
  int indexOrdered;         // recIndex ascends; always 1
  // XML-mapped rows. A dataset is linked to a document when editable is 0
  // and xmlDataset is 1.
  int editable;             // SetEditableFlag value
  int xmlDataset;           // SetXMLDSFlag value; 1 when a node list is set
  Ox_DomNodeList *domNodeList;  // one node per row in link mode; made and
                                // freed by the XML concern, null until then
  Ox_IntList linkIndex;     // row index in link mode
  void *domSelection;       // the counted node selection, or null
  Ox_NamedStrList nameSpaceList;  // prefix to namespace pairs

 protected:
  // The blocks of the first binary stream form. Each returns the position
  // behind what it wrote or read, or -1; SaveData and SaveDeleteData give
  // `position` back unchanged when they write nothing.
  int SaveHead(Ox_Buffer &buffer, unsigned int codePage, int version);
  int SaveData(Ox_Buffer &buffer, int saveType, unsigned int codePage,
               int position);
  int SaveDeleteData(Ox_Buffer &buffer, unsigned int codePage, int position);
  int LoadHead(const Ox_Buffer &buffer, int position);
  // One row block; `count` gets the block's count (untouched when the
  // buffer ends before it).
  int LoadData(const Ox_Buffer &buffer, int position, int &count);
  // LoadData again and again until the terminator or a failure.
  int LoadRowBlocks(const Ox_Buffer &buffer, int position);

 private:
  void InitMembers(unsigned int cp, const char *idText, int idLength);
  // Adds a filled-in column to `owner`'s lists; the common end of every
  // AddColumn route.
  static int InsertNewColumn(Ox_Dataset *owner, Ox_ColInfo &column);
};

constexpr Ox_DatasetHandler::Ox_DatasetHandler()
    : Ox_ListObjHandler("Ox_Dataset", sizeof(Ox_Dataset), 32) {}

// The named list of datasets that travels beside the variables.
class OX_API Ox_DatasetList : public Ox_ObjList {
 public:
  // With 1 (the default) the identifiers are kept unique.
  Ox_DatasetList();
  explicit Ox_DatasetList(int unique);
  ~Ox_DatasetList();

  int FindId(const char *id) const;  // ignoring case; -1 if none
  const Ox_Dataset *GetItem(int index) const;
  const Ox_Dataset *GetItem(const char *id) const;
  const Ox_Dataset *GetItemNN(int index) const;  // _OxNullDataset then
  const Ox_Dataset *operator[](int index) const { return GetItemNN(index); }
  Ox_Dataset *GetSafeItem(int index, int grow = 0);
  // By identifier; with `grow` a missing one is added with that identifier.
  Ox_Dataset *GetSafeItem(const char *id, int grow = 0);
  // The dataset itself, not a copy; the caller keeps it alive.
  int AddLink(Ox_Dataset *dataset);
  void Clear() { ReleaseList(); }
};

#endif
