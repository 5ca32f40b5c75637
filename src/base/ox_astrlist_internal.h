// The handler of Ox_AStrList, on the pool "Ox_AString".
#ifndef OX_ASTRLIST_INTERNAL_H
#define OX_ASTRLIST_INTERNAL_H

#include "Ox_List.h"

class Ox_AStrHandler : public Ox_ListObjHandler {
 public:
  constexpr Ox_AStrHandler(const char *name, int itemSize, int itemsPerBlock)
      : Ox_ListObjHandler(name, itemSize, itemsPerBlock) {}
  void *_InitItem(void *item) override;
  void _FreeItem(void *item) override;
  void _AssignItem(void *target, void *source) override;
  // The key is the address of a `const char *`; exact byte comparison.
  int _CompareItem(void *item, void *key) override;
};

extern Ox_AStrHandler _OxAStrHandler;

#endif
