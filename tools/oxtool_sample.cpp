// The sample data of oxtool.
#include "oxtool_sample.h"

#include "OxClassLib.h"

void FillOrders(Ox_Dataset &orders) {
  orders.AddColumn("id", 2, 4, 0);
  orders.AddColumn("customer", 1, 32, 0);
  orders.AddColumn("amount", 5, 8, 0);
  orders.AddConstColumn("branch", Ox_Variant("Seoul"));
  const char *customers[] = {"Kim", "Lee", "Park"};
  const double amounts[] = {120.5, 80.0, 310.25};
  for (int i = 0; i < 3; ++i) {
    const int row = orders.AppendRow();
    orders.SetColumn(row, 0, static_cast<long>(i + 1));
    orders.SetColumn(row, 1, Ox_AString(customers[i]));
    Ox_Variant amount{Ox_Currency(amounts[i])};
    orders.SetColumn(row, 2, &amount);
  }
  orders.ApplyChange();
}

void EditOrders(Ox_Dataset &orders) {
  orders.SetUpdate(1);
  orders.SetColumn(0, 1, Ox_AString("Kim Minsu"));
  orders.DeleteRow(1);
  const int added = orders.AppendRow();
  orders.SetColumn(added, 0, static_cast<long>(4));
  orders.SetColumn(added, 1, Ox_AString("Choi"));
}

void FillParameters(Ox_VariableList &parameters) {
  parameters.AddVariable("service", Ox_Variant("order.save"));
  parameters.AddVariable("user", Ox_Variant("clerk01"));
  parameters.AddVariable("retries", Ox_Variant(static_cast<long>(3)));
}
