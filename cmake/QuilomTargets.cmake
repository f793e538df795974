# Helpers that keep the per-subsystem targets uniform. New source files are picked up by
# globbing, so adding a file to a subsystem never needs an edit here.

set(QUILOM_DATA_SOURCE_DIR ${CMAKE_SOURCE_DIR}/data/Sorvin)

# quilom_core_library(<subsystem> [<subsystem it uses> ...])
# Builds src/<subsystem>/*.cpp (never its win32/ or libreoffice/ folders) as quilom_<subsystem>.
# A core file that includes <windows.h> fails the native build, which has no such header.
function(quilom_core_library name)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${name}/*.cpp)
  if(sources)
    add_library(quilom_${name} STATIC ${sources})
    target_include_directories(quilom_${name} PUBLIC ${CMAKE_SOURCE_DIR}/src ${CMAKE_BINARY_DIR}/generated)
    set(visibility PUBLIC)
  else()
    add_library(quilom_${name} INTERFACE)
    target_include_directories(quilom_${name} INTERFACE ${CMAKE_SOURCE_DIR}/src ${CMAKE_BINARY_DIR}/generated)
    set(visibility INTERFACE)
  endif()
  foreach(dep IN LISTS ARGN)
    target_link_libraries(quilom_${name} ${visibility} quilom_${dep})
  endforeach()
endfunction()

# Copies the shipped data tree beside a target's executable, so that the program finds
# "Sorvin" next to itself as it does when installed.
# Every executable lands in the one output folder, so the data is copied there once, by one
# target that they all wait for: copies made by each program's own post-build step ran at the
# same time and failed each other.
function(quilom_copy_data_beside target)
  if(NOT TARGET quilom_data_beside)
    add_custom_target(quilom_data_beside ALL
      COMMAND ${CMAKE_COMMAND} -E copy_directory ${QUILOM_DATA_SOURCE_DIR} ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/Sorvin
      COMMENT "Copying the data tree beside the executables"
      VERBATIM)
  endif()
  add_dependencies(${target} quilom_data_beside)
endfunction()

# Static, console-free-of-DLLs linking for the MinGW builds: the executables must run on a
# bare Windows (and under Wine) with nothing but system DLLs.
function(quilom_windows_static target)
  if(MINGW)
    target_link_options(${target} PRIVATE -static -static-libgcc -static-libstdc++)
  endif()
endfunction()
