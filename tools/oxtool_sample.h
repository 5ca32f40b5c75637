// The sample data of oxtool: parameters and an "orders" dataset with
// change tracking, edited so that every row state is present.
#ifndef OXTOOL_SAMPLE_H
#define OXTOOL_SAMPLE_H

class Ox_Dataset;
class Ox_VariableList;

// Three committed rows: id INT, customer STRING, amount CURRENCY, and the
// constant column "branch".
void FillOrders(Ox_Dataset &orders);

// On the committed rows, with tracking on: row 0 edited (update), row 1
// deleted (kept for the save), and a fourth row appended (insert).
void EditOrders(Ox_Dataset &orders);

// The parameters that travel with the dataset.
void FillParameters(Ox_VariableList &parameters);

#endif
