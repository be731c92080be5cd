# The platform libraries that an application brings, as OrvRtf::Core, OrvRtf::Gui and OrvRtf::Base. Included
# where the library is built and, once it is installed, by its package configuration.

# orv_find_platform(<qt>): <qt> is Qt5 or Qt6. ORV_PLATFORM_FOUND tells whether all parts are there.
function(orv_find_platform qt)
    set(ORV_PLATFORM_FOUND ON)
    orv_find_platform_part(${qt} Core ORVCoreUtil.h)
    orv_find_platform_part(${qt} Gui ORVGuiUtil.h)
    orv_find_platform_part(${qt} Base ORVTextFormat.h)
    set(ORV_PLATFORM_FOUND ${ORV_PLATFORM_FOUND} PARENT_SCOPE)
endfunction()

# orv_find_platform_part(<qt> <part> <header>): <header> is one by which the folder of headers is recognised.
function(orv_find_platform_part qt part header)
    find_library(ORV_${part}_LIBRARY NAMES Orv${part})
    find_path(ORV_${part}_INCLUDE_DIR NAMES ${header} PATH_SUFFIXES OrvRtf)
    if(NOT ORV_${part}_LIBRARY OR NOT ORV_${part}_INCLUDE_DIR)
        message(STATUS "OrvRtf: the application's library Orv${part} or its header ${header} is missing")
        set(ORV_PLATFORM_FOUND OFF PARENT_SCOPE)
    elseif(NOT TARGET OrvRtf::${part})
        add_library(OrvRtf::${part} INTERFACE IMPORTED GLOBAL)
        set_target_properties(OrvRtf::${part} PROPERTIES
            INTERFACE_INCLUDE_DIRECTORIES "${ORV_${part}_INCLUDE_DIR}"
            INTERFACE_LINK_LIBRARIES "${ORV_${part}_LIBRARY};${qt}::Gui")
    endif()
endfunction()
