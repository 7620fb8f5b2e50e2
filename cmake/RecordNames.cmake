# The names of record types are those of the enumeration: "EMR_HEADER = 1," becomes {1, "HEADER"}, a line of
# recordNames.inc in SURFACE_RECORD_NAMES.
set(record_types ${PROJECT_SOURCE_DIR}/platform/windows/include/windows/recordTypes.h)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${record_types})
file(STRINGS ${record_types} record_names REGEX "^ *EMR_[A-Z0-9]+ = [0-9]+")
list(TRANSFORM record_names REPLACE "^ *EMR_([A-Z0-9]+) = ([0-9]+).*" "{\\2, \"\\1\"},\n")
string(CONCAT record_names ${record_names})
set(SURFACE_RECORD_NAMES ${PROJECT_BINARY_DIR}/generated)
file(CONFIGURE OUTPUT ${SURFACE_RECORD_NAMES}/recordNames.inc CONTENT "${record_names}")
