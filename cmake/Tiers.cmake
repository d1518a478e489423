# The primitive kernels are one set of sources compiled once per instruction-set level.
# Each build defines QV_TIER, the namespace that holds that level's copy of every kernel.
set(QVIMAGE_TIERS m7 u8 y8 e9)
set(QVIMAGE_TIER_FLAGS_m7 -msse3)
set(QVIMAGE_TIER_FLAGS_u8 -mssse3)
set(QVIMAGE_TIER_FLAGS_y8 -msse4.1)
set(QVIMAGE_TIER_FLAGS_e9 -mavx)
set(QVIMAGE_TIER_LEVEL_m7 1)
set(QVIMAGE_TIER_LEVEL_u8 2)
set(QVIMAGE_TIER_LEVEL_y8 3)
set(QVIMAGE_TIER_LEVEL_e9 4)

# qvimage_add_tier_objects(<prefix> <sources...>) makes one OBJECT library per tier,
# named <prefix>_<tier>, and appends them to QVIMAGE_TIER_OBJECT_LIBS.
function(qvimage_add_tier_objects prefix)
  foreach(tier IN LISTS QVIMAGE_TIERS)
    set(target ${prefix}_${tier})
    add_library(${target} OBJECT ${ARGN})
    target_compile_definitions(${target} PRIVATE QV_TIER=${tier} QV_TIER_LEVEL=${QVIMAGE_TIER_LEVEL_${tier}})
    # Kernels never throw: without exception tables no personality reference (a weak symbol shared
    # by every tier) is emitted.
    target_compile_options(${target} PRIVATE ${QVIMAGE_TIER_FLAGS_${tier}} -fno-exceptions)
    target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/src)
    set_property(GLOBAL APPEND PROPERTY QVIMAGE_TIER_OBJECT_LIBS ${target})
  endforeach()
endfunction()
