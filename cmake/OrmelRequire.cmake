# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: CC0-1.0

# ormel_missing(<what> <package of Debian> [<advice>]): fails and says how to install a missing dependency.
function(ormel_missing what package)
    string(JOIN " " advice ${ARGN})
    message(FATAL_ERROR "${what} was not found. On Debian, install the package ${package}. ${advice}")
endfunction()

# ormel_require_module(<name> <module of pkg-config> <package of Debian> [<advice>]): makes PkgConfig::<name>.
macro(ormel_require_module name module package)
    pkg_check_modules(${name} QUIET IMPORTED_TARGET GLOBAL "${module}")
    if(NOT ${name}_FOUND)
        ormel_missing("${module}" ${package} ${ARGN})
    endif()
endmacro()

# ormel_require(<package of CMake> <version> <package of Debian> [<advice>] [COMPONENTS <component>...])
macro(ormel_require name version package)
    cmake_parse_arguments(REQUIRE "" "" "COMPONENTS" ${ARGN})
    find_package(${name} ${version} QUIET COMPONENTS ${REQUIRE_COMPONENTS})
    if(NOT ${name}_FOUND)
        ormel_missing("${name} ${version}" ${package} ${REQUIRE_UNPARSED_ARGUMENTS})
    endif()
endmacro()
