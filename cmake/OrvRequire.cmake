# Dependencies that stop the configuration, naming the Debian package that provides them, when
# they are missing: a build never leaves out a library or its tests without saying so.
# scripts/install-deps installs every one of them.

# find_package(<name> <args>...) or a configuration error naming `debian`.
macro(orv_require_package name debian)
  find_package(${name} ${ARGN} QUIET)
  if(NOT ${name}_FOUND)
    message(FATAL_ERROR "${name} was not found: install ${debian} (Debian; scripts/install-deps installs every dependency)")
  endif()
endmacro()

# pkg_check_modules(<prefix> IMPORTED_TARGET <module>) or a configuration error naming `debian`.
macro(orv_require_module prefix module debian)
  orv_require_package(PkgConfig pkg-config)
  pkg_check_modules(${prefix} QUIET IMPORTED_TARGET ${module})
  if(NOT ${prefix}_FOUND)
    message(FATAL_ERROR "${module} was not found: install ${debian} (Debian; scripts/install-deps installs every dependency)")
  endif()
endmacro()
