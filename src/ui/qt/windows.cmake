# The programs, in another folder, link what this one finds.
set(CMAKE_FIND_PACKAGE_TARGETS_GLOBAL TRUE)
find_package(Qt6 REQUIRED COMPONENTS Widgets PrintSupport)

target_compile_definitions(lantos_ui_qt PRIVATE QT_NO_KEYWORDS)
target_link_libraries(lantos_ui_qt PUBLIC Qt6::Widgets PRIVATE Qt6::PrintSupport)

precompile(lantos_ui_qt windows)

# Each form becomes a header, and all of them a table by name.
file(GLOB forms CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/forms/*.ui)
qt_wrap_ui(form_headers ${forms})
set(form_includes "")
set(form_rows "")
foreach(form ${forms})
  cmake_path(GET form STEM name)
  string(APPEND form_includes "#include \"ui_${name}.h\"\n")
  string(APPEND form_rows "FORM(${name})\n")
endforeach()
file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/FormHeaders.inc CONTENT "${form_includes}" @ONLY)
file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/FormRows.inc CONTENT "${form_rows}" @ONLY)
target_sources(lantos_ui_qt PRIVATE ${form_headers})
target_include_directories(lantos_ui_qt PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
# What Qt's compiler writes is not held to the warnings of our own code.
set_source_files_properties(${CMAKE_CURRENT_LIST_DIR}/FormFile.cpp PROPERTIES COMPILE_OPTIONS "-Wno-shadow;-Wno-conversion")

# The icon is a part of the program, as bytes of its pictures.
foreach(size 16 32 48)
  set(picture ${PROJECT_SOURCE_DIR}/packaging/icons/lantos-${size}.png)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${picture})
  file(READ ${picture} bytes HEX)
  string(REGEX REPLACE "(..)" "0x\\1," bytes "${bytes}")
  file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/Icon${size}.inc CONTENT "${bytes}\n" @ONLY)
endforeach()
