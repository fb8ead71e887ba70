# panel_view_install_program(TARGET)
#
# Installs a program that finds the libraries of its own prefix, wherever that is moved to. It is compiled as a library is:
# no data of libraries is copied into it.
function(panel_view_install_program target)
    target_compile_options(${target} PRIVATE -fPIC)
    file(RELATIVE_PATH to_libraries "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}")
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN/${to_libraries}")
    install(TARGETS ${target} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tools)
endfunction()
