# Fails when a file includes a header of a layer it must not use: the class
# library and the headless parts of the runtime use no Qt and no window
# code, the Qt glue and the host interfaces nothing above them.
# Run as: cmake -DSOURCE_DIR=<repository> -P CheckLayers.cmake

# Each rule: folders (separated by ','), what their includes must not match
# and, after a '!', what they may include all the same. A file is held to the
# rule of the deepest folder that holds it, so designide/forms (a target of
# its own, over the runtime) has a rule apart from the rest of designide.
set(rules
  "rtl|<Q|\"(vcl|runtime|designide|design|ide|cli)/"
  "runtime/model,runtime/util,runtime/files|<Q|\"(vcl|runtime/(components|pictures|dialogs)|designide|design|ide|cli)/"
  "vcl|\"(runtime|designide|design|ide|cli)/"
  "designide|<Q|\"(vcl|runtime|design|ide|cli|designide/forms)/"
  # Qt's value types, objects and undo stacks (QtCore, QtGui), and the one
  # bridge between the class library's strings and Qt's: no widget.
  "designide/forms|<Q|\"(vcl|design|ide|cli)/!<Q(Point|Rect|Size|String|Object|UndoStack|UndoCommand)>|\"vcl/QzQtString\\.h\"")

set(ruled_folders "")
foreach(rule IN LISTS rules)
  string(REGEX MATCH "^[^|]*" folders "${rule}")
  string(REPLACE "," ";" folders "${folders}")
  list(APPEND ruled_folders ${folders})
endforeach()

# Whether path lies in a ruled folder below folder (which then rules it).
function(ruled_deeper folder path result)
  set(${result} FALSE PARENT_SCOPE)
  foreach(other IN LISTS ruled_folders)
    string(LENGTH "${folder}" length)
    string(LENGTH "${other}" other_length)
    if(other_length GREATER length AND other MATCHES "^${folder}/" AND path MATCHES "^${SOURCE_DIR}/${other}/")
      set(${result} TRUE PARENT_SCOPE)
    endif()
  endforeach()
endfunction()

set(violations "")
foreach(rule IN LISTS rules)
  string(FIND "${rule}" "|" bar)
  string(SUBSTRING "${rule}" 0 ${bar} folders)
  string(REPLACE "," ";" folders "${folders}")
  math(EXPR start "${bar} + 1")
  string(SUBSTRING "${rule}" ${start} -1 forbidden)
  set(allowed "")
  string(FIND "${forbidden}" "!" bang)
  if(bang GREATER -1)
    math(EXPR start "${bang} + 1")
    string(SUBSTRING "${forbidden}" ${start} -1 allowed)
    string(SUBSTRING "${forbidden}" 0 ${bang} forbidden)
  endif()
  foreach(folder IN LISTS folders)
    file(GLOB_RECURSE files "${SOURCE_DIR}/${folder}/*.h" "${SOURCE_DIR}/${folder}/*.cpp")
    foreach(path IN LISTS files)
      ruled_deeper("${folder}" "${path}" deeper)
      if(deeper)
        continue()
      endif()
      file(STRINGS "${path}" includes REGEX "^[ \t]*#[ \t]*include")
      foreach(line IN LISTS includes)
        if(allowed AND line MATCHES "include[ \t]*(${allowed})")
          continue()
        endif()
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
