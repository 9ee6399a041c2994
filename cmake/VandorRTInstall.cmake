# cmake --install: the libraries, their headers (under include/VandorRT, included as
# "core/...", "builder/...") and a CMake package, so that a host writes
#
#     find_package(VandorRT REQUIRED)
#     target_link_libraries(app PRIVATE VandorRT::Widgets)

include(CMakePackageConfigHelpers)

set(VD_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/VandorRT)
set(VD_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/VandorRT)

set_target_properties(vd_core PROPERTIES EXPORT_NAME Core)
target_include_directories(vd_core PUBLIC $<INSTALL_INTERFACE:${VD_INSTALL_INCLUDEDIR}>)
set(_vd_installed vd_core)
set(_vd_header_dirs core dialects)
if(TARGET vd_widgets)
    target_include_directories(vd_widgets PUBLIC $<INSTALL_INTERFACE:${VD_INSTALL_INCLUDEDIR}>)
    list(APPEND _vd_installed vd_widgets)
    list(APPEND _vd_header_dirs builder panels diagram resources)
endif()

# Everything a host builds against is the Development component (the demo is Demo).
install(TARGETS ${_vd_installed} EXPORT VandorRTTargets
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Development
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Development
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Development)
foreach(_dir IN LISTS _vd_header_dirs)
    if(EXISTS ${PROJECT_SOURCE_DIR}/${_dir})
        install(DIRECTORY ${PROJECT_SOURCE_DIR}/${_dir}/ DESTINATION ${VD_INSTALL_INCLUDEDIR}/${_dir}
            COMPONENT Development FILES_MATCHING PATTERN "*.h")
    endif()
endforeach()

install(EXPORT VandorRTTargets NAMESPACE VandorRT:: DESTINATION ${VD_INSTALL_CMAKEDIR}
    COMPONENT Development)
set(VD_PACKAGE_WIDGETS ${VD_BUILD_WIDGETS})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/VandorRTConfig.cmake.in
    ${CMAKE_CURRENT_BINARY_DIR}/VandorRTConfig.cmake INSTALL_DESTINATION ${VD_INSTALL_CMAKEDIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/VandorRTConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/VandorRTConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/VandorRTConfigVersion.cmake
        DESTINATION ${VD_INSTALL_CMAKEDIR} COMPONENT Development)
