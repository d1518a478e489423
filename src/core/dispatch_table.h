#ifndef QV_CORE_DISPATCH_TABLE_H
#define QV_CORE_DISPATCH_TABLE_H

// The jump table of one exported primitive: five addresses, one per slot, in the form
// m7, m7, u8, y8, e9. Its stub (assembly) indexes it with ippJumpIndexForMergedLibs.
// Each tier's copy has the exported function's type and lives in the tier's namespace.

#define QV_TIER_COPY_DECLARATION(tier, name) \
  namespace tier {                           \
  decltype(::name) name;                     \
  }

#define QV_JUMP_TABLE(name)                                                                \
  QV_TIER_COPY_DECLARATION(m7, name)                                                       \
  QV_TIER_COPY_DECLARATION(u8, name)                                                       \
  QV_TIER_COPY_DECLARATION(y8, name)                                                       \
  QV_TIER_COPY_DECLARATION(e9, name)                                                       \
  extern "C" __attribute__((visibility("hidden"))) const void* const name##_arraddr[5] = { \
      reinterpret_cast<const void*>(&m7::name), reinterpret_cast<const void*>(&m7::name),  \
      reinterpret_cast<const void*>(&u8::name), reinterpret_cast<const void*>(&y8::name),  \
      reinterpret_cast<const void*>(&e9::name)};

#endif
