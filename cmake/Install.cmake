# What `cmake --install` puts where, and what find_package(kxVsGrid 3.5) finds.
include(CMakePackageConfigHelpers)
set(KX_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/kxVsGrid)

# Everything that is installed; the rest of a build need not be made for it.
add_custom_target(kxVsGrid_package DEPENDS kxVsGrid_core $<TARGET_NAME_IF_EXISTS:kxVsGrid_qt>
    $<TARGET_NAME_IF_EXISTS:kxVsGrid_designer>)

install(TARGETS kxVsGrid_core EXPORT kxVsGridCoreTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT kxVsGridCoreTargets NAMESPACE kxVsGrid:: DESTINATION ${KX_CMAKE_DIR})
install(DIRECTORY include/kxVsGrid DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} PATTERN qt EXCLUDE)
if(KXVSGRID_QT)
    install(TARGETS kxVsGrid_qt EXPORT kxVsGridQtTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
    install(EXPORT kxVsGridQtTargets NAMESPACE kxVsGrid:: DESTINATION ${KX_CMAKE_DIR})
    install(DIRECTORY include/kxVsGrid/qt DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kxVsGrid)
endif()
if(TARGET kxVsGrid_designer)
    # Qt Designer finds it when QT_PLUGIN_PATH names the folder above, or when the prefix is Qt's own.
    set(KX_QT_PLUGINS ${CMAKE_INSTALL_LIBDIR}/qt6/plugins)
    install(TARGETS kxVsGrid_designer LIBRARY DESTINATION ${KX_QT_PLUGINS}/designer COMPONENT designer)
endif()
configure_package_config_file(cmake/kxVsGridConfig.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/kxVsGridConfig.cmake
    INSTALL_DESTINATION ${KX_CMAKE_DIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/kxVsGridConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/kxVsGridConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/kxVsGridConfigVersion.cmake
    DESTINATION ${KX_CMAKE_DIR})
