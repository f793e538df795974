# The `quilom` command as a Debian package for Linux users (cpack -G DEB, run by
# scripts/package.sh deb): the program in /usr/bin, its data tree in /usr/share/quilom/Sorvin
# (where the program looks when no data tree sits beside it), a manual page made from its own
# help, and bash completion.
find_program(QUILOM_HELP2MAN help2man)

install(TARGETS quilom RUNTIME DESTINATION bin)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/data/Sorvin DESTINATION share/quilom)
install(FILES ${CMAKE_SOURCE_DIR}/packaging/debian/quilom.bash-completion
        DESTINATION share/bash-completion/completions RENAME quilom)

if(QUILOM_HELP2MAN)
  set(manpage ${CMAKE_BINARY_DIR}/man/quilom.1.gz)
  add_custom_command(
    OUTPUT ${manpage}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/man
    COMMAND ${CMAKE_SOURCE_DIR}/packaging/debian/make_manpage.sh $<TARGET_FILE:quilom>
            ${CMAKE_SOURCE_DIR}/data/Sorvin ${CMAKE_BINARY_DIR}/man/quilom.1
    COMMAND gzip -9nf ${CMAKE_BINARY_DIR}/man/quilom.1
    DEPENDS quilom ${CMAKE_SOURCE_DIR}/packaging/debian/make_manpage.sh
    COMMENT "Writing the manual page from quilom --help")
  add_custom_target(quilom_manpage ALL DEPENDS ${manpage})
  install(FILES ${manpage} DESTINATION share/man/man1)
else()
  message(STATUS "No help2man: the Debian package is made without its manual page")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quilom)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_CONTACT "Quilom++ developers <quilom@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "Indic typing engine, legacy Tamil font converter and text tools on the command line")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "quilom types Latin phonetic text through the keymaps of Quilom++ (Tamil phonetic,\nTamil99, ITRANS schemes and more), converts text and documents between 25 legacy\nTamil font encodings and Unicode, reads Tamil back into Latin spelling and\nnormalises percent-encoded addresses.")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_PACKAGE_SECTION text)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
if(QUILOM_BUILD_LIBREOFFICE)
  # The document backend links LibreOffice's UNO libraries from its own program folder.
  set(CPACK_DEBIAN_PACKAGE_DEPENDS "libc6, libstdc++6, libgcc-s1, ure, libreoffice-writer-nogui | libreoffice-writer")
else()
  set(CPACK_DEBIAN_PACKAGE_DEPENDS "libc6, libstdc++6, libgcc-s1")
endif()
set(CPACK_OUTPUT_FILE_PREFIX ${CMAKE_SOURCE_DIR}/build/packages)
include(CPack)
