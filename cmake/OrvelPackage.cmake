# What other programs build against: the design record and the store, with the headers that theirs include.

include(CMakePackageConfigHelpers)

set(package ${CMAKE_INSTALL_LIBDIR}/cmake/Orvel)
set_target_properties(orvel_model PROPERTIES EXPORT_NAME model)
set_target_properties(orvel_foundation PROPERTIES EXPORT_NAME foundation)
set_target_properties(orvel_language PROPERTIES EXPORT_NAME language)
install(TARGETS orvel_model orvel_foundation orvel_language EXPORT OrvelTargets ARCHIVE COMPONENT development)
install(EXPORT OrvelTargets NAMESPACE Orvel:: DESTINATION ${package} COMPONENT development)

install(
  FILES
    model/store_files.h
    model/widget_field.h
    model/widget_fields.h
    model/widget_kind.h
    model/widget_spec.h
    model/widget_spec_json.h
    model/widget_store.h
  DESTINATION ${ORVEL_HEADERS}/model
  COMPONENT development)
install(
  FILES
    platform/foundation/accounts.h
    platform/foundation/clock.h
    platform/foundation/date.h
    platform/foundation/files.h
    platform/foundation/identity.h
    platform/foundation/json_writer.h
    platform/foundation/platform.h
    platform/foundation/result.h
    platform/foundation/text_position.h
    platform/foundation/time_zone.h
  DESTINATION ${ORVEL_HEADERS}/platform/foundation
  COMPONENT development)

configure_package_config_file(cmake/OrvelConfig.cmake.in ${CMAKE_BINARY_DIR}/package/OrvelConfig.cmake
  INSTALL_DESTINATION ${package})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/package/OrvelConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(
  FILES
    cmake/FindUnistring.cmake
    ${CMAKE_BINARY_DIR}/package/OrvelConfig.cmake
    ${CMAKE_BINARY_DIR}/package/OrvelConfigVersion.cmake
  DESTINATION ${package}
  COMPONENT development)
