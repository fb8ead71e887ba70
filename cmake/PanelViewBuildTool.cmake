# panel_view_import_build_tool(TARGET VARIABLE)
#
# For a program that the build itself runs. When VARIABLE names one that runs on the build machine, TARGET stands for
# it and is not to be built; a cross build must name one.
function(panel_view_import_build_tool target variable)
    set(${variable} "" CACHE FILEPATH "A ${target} that runs on the build machine")
    if(${variable})
        add_executable(${target} IMPORTED GLOBAL)
        set_target_properties(${target} PROPERTIES IMPORTED_LOCATION "${${variable}}")
    elseif(CMAKE_CROSSCOMPILING)
        message(FATAL_ERROR "${target} must run on the build machine: build it there and name it in ${variable}")
    endif()
endfunction()
