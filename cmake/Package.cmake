# What is installed besides the programs, and the Debian package: cmake --install, or cpack in a tree of the preset release.
set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(packed ${CMAKE_BINARY_DIR}/packaging)

# Where the shop's vendor shows the program, as https://host/path. There is none before one is given, and then nothing that
# is installed leads anywhere; pictures of a program for its shelf in a software centre have to lie on the web.
set(LANTOS_HOME_PAGE "" CACHE STRING "Address of the program's page, with week.png, detail.png and history.png below it")
# Names under "invalid" are reserved: no host has them, so nobody's name is taken and nobody's mailbox written to.
set(LANTOS_CONTACT "The Lantos developers <lantos@lantos.invalid>" CACHE STRING "Who answers for the package")
set(LANTOS_ID invalid.lantos.Lantos CACHE STRING "Under which software centres know the program: a host of its vendor's, reversed, and the name")
set(LANTOS_LINKS "")
if(LANTOS_HOME_PAGE)
  string(REGEX REPLACE "/$" "" page "${LANTOS_HOME_PAGE}")
  string(CONFIGURE [[
  <url type="homepage">@page@/</url>
  <screenshots>
    <screenshot type="default">
      <caption>The week on the board</caption>
      <image>@page@/week.png</image>
    </screenshot>
    <screenshot>
      <caption>An estimate in full</caption>
      <image>@page@/detail.png</image>
    </screenshot>
    <screenshot>
      <caption>A past work order</caption>
      <image>@page@/history.png</image>
    </screenshot>
  </screenshots>
]] LANTOS_LINKS @ONLY)
endif()

# Debian's own file of changes, and the project's.
configure_file(${packaging}/changelog.in ${packed}/changelog.Debian @ONLY)
configure_file(${packaging}/lantos.metainfo.xml.in ${packed}/${LANTOS_ID}.metainfo.xml @ONLY)

# Packs a file as Debian wants it, without name and time.
function(pack_file source result)
  add_custom_command(OUTPUT ${result} DEPENDS ${source} COMMAND gzip -9nc ${source} > ${result} VERBATIM)
endfunction()

pack_file(${packed}/changelog.Debian ${packed}/changelog.Debian.gz)
pack_file(${PROJECT_SOURCE_DIR}/CHANGELOG.md ${packed}/changelog.gz)
set(made ${packed}/changelog.Debian.gz ${packed}/changelog.gz)

# A sanitized program is slow to ask, and nobody packs it.
find_program(PYTHON NAMES python3 PATHS /usr/bin)
if(PYTHON AND NOT LANTOS_SANITIZE)
  foreach(program lantos lantos-drive lantos-shop)
    if(NOT TARGET ${program})
      continue()
    endif()
    set(template ${packaging}/man/${program}.1.in)
    add_custom_command(OUTPUT ${packed}/${program}.1
      DEPENDS ${program} ${template} ${packaging}/make_man.py
      COMMAND ${PYTHON} ${packaging}/make_man.py ${template} $<TARGET_FILE:${program}> ${packed}/${program}.1
        ${LANTOS_VERSION} ${LANTOS_DATE}
      VERBATIM)
    pack_file(${packed}/${program}.1 ${packed}/${program}.1.gz)
    list(APPEND made ${packed}/${program}.1.gz)
    install(FILES ${packed}/${program}.1.gz DESTINATION share/man/man1)
  endforeach()
  if(LANTOS_QT)
    # The guide, in pages that the program's own library sets; where it lies by its name it is what Help opens.
    set(guide ${packed}/Lantos\ Quick\ Start\ Guide.pdf)
    file(GLOB pictures CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/pictures/*.png)
    add_executable(make-guide EXCLUDE_FROM_ALL ${packaging}/guide/MakeGuide.cpp)
    target_link_libraries(make-guide PRIVATE Qt6::Gui)
    set_target_properties(make-guide PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${packed})
    add_custom_command(OUTPUT ${guide} DEPENDS make-guide ${PROJECT_SOURCE_DIR}/docs/guide/guide.md ${pictures}
      COMMAND make-guide ${PROJECT_SOURCE_DIR}/docs/guide/guide.md ${guide} VERBATIM)
    list(APPEND made ${guide})
    install(FILES ${guide} DESTINATION share/lantos/guide)
  endif()
  add_custom_target(package_files ALL DEPENDS ${made})
  install(FILES ${packed}/changelog.Debian.gz ${packed}/changelog.gz DESTINATION share/doc/lantos)
endif()

install(FILES ${packaging}/copyright DESTINATION share/doc/lantos)
install(FILES ${packaging}/lintian-overrides DESTINATION share/lintian/overrides RENAME lantos)
install(FILES ${packaging}/lantos.desktop DESTINATION share/applications)
install(FILES ${packed}/${LANTOS_ID}.metainfo.xml DESTINATION share/metainfo)
install(FILES ${packaging}/lantos.xml DESTINATION share/mime/packages)
install(FILES ${packaging}/lantos.svg DESTINATION share/icons/hicolor/scalable/apps)
foreach(size 16 22 24 32 48 64 128 256)
  install(FILES ${packaging}/icons/lantos-${size}.png DESTINATION share/icons/hicolor/${size}x${size}/apps RENAME lantos.png)
endforeach()
foreach(program lantos-shop lantos-drive)
  install(FILES ${packaging}/completions/lantos-shop.bash DESTINATION share/bash-completion/completions RENAME ${program})
endforeach()
install(FILES ${packaging}/completions/_lantos-shop DESTINATION share/zsh/vendor-completions)
install(FILES ${packaging}/completions/lantos-shop.fish DESTINATION share/fish/vendor_completions.d)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME lantos)
set(CPACK_PACKAGE_VENDOR "The Lantos developers")
set(CPACK_PACKAGE_CONTACT "${LANTOS_CONTACT}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "appointment scheduler of a car repair shop")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "A service writer books estimates on a calendar and sees, for each day,
how many mechanic hours are available and how many are scheduled already:
green is good, yellow is under, red is over. An estimate holds labor,
parts, sublets, waste and notes, and becomes a work order in the end.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
if(LANTOS_HOME_PAGE)
  set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${LANTOS_HOME_PAGE}")
endif()
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Papers are set in these; a shop whose estimates lie on a server needs its client library, an old shop's are read by mdbtools,
# and who checks spelling needs a dictionary.
set(CPACK_DEBIAN_PACKAGE_DEPENDS fonts-liberation)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libpq5, mdbtools, hunspell-en-us | hunspell-dictionary")
include(CPack)
