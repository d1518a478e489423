# Every exported primitive is named once, in the exports.list of its family directory.
# From those lists this writes the jump tables (C++) and the one-jump stubs (assembly).
function(qvimage_generate_dispatch out_var)
  file(GLOB_RECURSE lists CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/primitives/*/exports.list)
  list(SORT lists)
  set(names "")
  foreach(list_file IN LISTS lists)
    set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list_file})
    file(STRINGS ${list_file} lines REGEX "^[A-Za-z_][A-Za-z0-9_]*$")
    list(APPEND names ${lines})
  endforeach()
  list(SORT names)
  list(REMOVE_DUPLICATES names)

  set(tables "// Generated from the exports.list files; do not edit.\n#include \"qvimage/qvimage.h\"\n#include \"core/dispatch_table.h\"\n\n")
  set(stubs "# Generated from the exports.list files; do not edit.\n# Each stub loads the current slot and jumps through its table, arguments untouched.\n\t.text\n")
  set(names_text "")
  foreach(name IN LISTS names)
    string(APPEND tables "QV_JUMP_TABLE(${name})\n")
    string(APPEND stubs "\t.globl ${name}\n\t.type ${name}, @function\n\t.p2align 4\n${name}:\n"
                        "\tmovq ippJumpIndexForMergedLibs@GOTPCREL(%rip), %rax\n"
                        "\tmovslq (%rax), %rax\n"
                        "\tleaq ${name}_arraddr(%rip), %r11\n"
                        "\tjmpq *(%r11,%rax,8)\n"
                        "\t.size ${name}, .-${name}\n\n")
    string(APPEND names_text "${name}\n")
  endforeach()
  string(APPEND stubs "\t.section .note.GNU-stack,\"\",@progbits\n")

  set(dir ${PROJECT_BINARY_DIR}/generated)
  # Written through a copy so that an unchanged list does not touch the files and rebuild.
  foreach(pair "dispatch_tables.cpp;tables" "dispatch_stubs.S;stubs" "exported_primitives.txt;names_text")
    list(GET pair 0 file_name)
    list(GET pair 1 var_name)
    file(WRITE ${dir}/${file_name}.tmp "${${var_name}}")
    configure_file(${dir}/${file_name}.tmp ${dir}/${file_name} COPYONLY)
  endforeach()
  set(${out_var} ${dir}/dispatch_tables.cpp ${dir}/dispatch_stubs.S PARENT_SCOPE)
  set(QVIMAGE_EXPORTED_PRIMITIVES_FILE ${dir}/exported_primitives.txt CACHE INTERNAL "")
endfunction()
