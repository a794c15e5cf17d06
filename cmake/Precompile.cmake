# Headers of the libraries that many sources include, read once for all of them. Which headers a source needs it names
# itself all the same: most builds go without this.
set(precompiled_std <algorithm> <array> <chrono> <cstdint> <filesystem> <functional> <map> <memory> <optional> <span>
  <stdexcept> <string> <string_view> <utility> <variant> <vector> <fmt/format.h>)
set(precompiled_tests ${precompiled_std} <gmock/gmock.h> <gtest/gtest.h>)
set(precompiled_windows ${precompiled_std} <QtWidgets>)
set(precompiled_windows_tests ${precompiled_tests} <QtWidgets>)

#   precompile(lantos_board std)
# The first target that asks for a set makes it, the others take it over: they are compiled with the same options.
function(precompile target set)
  if(NOT LANTOS_PRECOMPILE)
    return()
  endif()
  get_property(maker GLOBAL PROPERTY precompiled_by_${set})
  if(maker)
    target_precompile_headers(${target} REUSE_FROM ${maker})
  else()
    target_precompile_headers(${target} PRIVATE ${precompiled_${set}})
    set_property(GLOBAL PROPERTY precompiled_by_${set} ${target})
  endif()
endfunction()
