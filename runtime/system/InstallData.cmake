# The install data (the base language file and Standard.dis), generated at
# build time from the built-in tables of runtime/system by a small program
# linked against the runtime, written to <build>/share/qzcontrols/ where
# QzGetInstallPath finds it from <build>/runtime/, and installed to
# <prefix>/share/qzcontrols/ beside <prefix>/lib/.
#
# Included from runtime/CMakeLists.txt after the QzCtrls_c6 target. The
# program's main is generated here: every .cpp below runtime/ belongs to the
# library, so the generator's code lives there (QzInstallDataMain) and only
# this one line is the program's own.

set(QZ_INSTALL_DATA_MAIN ${CMAKE_CURRENT_BINARY_DIR}/qz_install_data_main.cpp)
file(GENERATE OUTPUT ${QZ_INSTALL_DATA_MAIN} CONTENT
  "#include \"runtime/system/QzSystemData.h\"\nint main(int argc, char** argv) { return QzInstallDataMain(argc, argv); }\n")
add_executable(qz_install_data ${QZ_INSTALL_DATA_MAIN})
target_link_libraries(qz_install_data PRIVATE QzCtrls_c6)
qz_warnings(qz_install_data)

set(QZ_SHARE_DIR ${CMAKE_BINARY_DIR}/share/qzcontrols)
set(QZ_INSTALL_DATA_FILES ${QZ_SHARE_DIR}/Base.lan ${QZ_SHARE_DIR}/Standard.dis)
add_custom_command(
  OUTPUT ${QZ_INSTALL_DATA_FILES}
  COMMAND qz_install_data ${QZ_SHARE_DIR}
  DEPENDS qz_install_data
  COMMENT "Generating the base language file and Standard.dis"
  VERBATIM)
add_custom_target(qz_install_data_files ALL DEPENDS ${QZ_INSTALL_DATA_FILES})

include(GNUInstallDirs)
install(FILES ${QZ_INSTALL_DATA_FILES} DESTINATION ${CMAKE_INSTALL_DATADIR}/qzcontrols)
