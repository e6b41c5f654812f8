# Fails when a file includes a header of a layer it must not use: the class
# library and the headless parts of the runtime use no Qt and no window
# code, the Qt glue and the host interfaces nothing above them.
# Run as: cmake -DSOURCE_DIR=<repository> -P CheckLayers.cmake

# Each rule: folders (separated by ',') and what their includes must not match.
set(rules
  "rtl|<Q|\"(vcl|runtime|designide|design|ide|cli)/"
  "runtime/model,runtime/util,runtime/files|<Q|\"(vcl|runtime/(components|pictures|dialogs)|designide|design|ide|cli)/"
  "vcl|\"(runtime|designide|design|ide|cli)/"
  "designide|<Q|\"(vcl|runtime|design|ide|cli)/")

set(violations "")
foreach(rule IN LISTS rules)
  string(FIND "${rule}" "|" bar)
  string(SUBSTRING "${rule}" 0 ${bar} folders)
  math(EXPR start "${bar} + 1")
  string(SUBSTRING "${rule}" ${start} -1 forbidden)
  string(REPLACE "," ";" folders "${folders}")
  foreach(folder IN LISTS folders)
    file(GLOB_RECURSE files "${SOURCE_DIR}/${folder}/*.h" "${SOURCE_DIR}/${folder}/*.cpp")
    foreach(path IN LISTS files)
      file(STRINGS "${path}" includes REGEX "^[ \t]*#[ \t]*include")
      foreach(line IN LISTS includes)
        if(line MATCHES "include[ \t]*(${forbidden})")
          file(RELATIVE_PATH shown "${SOURCE_DIR}" "${path}")
          string(APPEND violations "  ${shown}: ${line}\n")
        endif()
      endforeach()
    endforeach()
  endforeach()
endforeach()

if(violations)
  message(FATAL_ERROR "Includes across the layers:\n${violations}")
endif()
