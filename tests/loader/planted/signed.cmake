# Mistakes that only a library with signed pointers can have: in how its code signs, and in the file.
planted(signed signed)
planted(plain_saved signed DEFINITIONS PLAIN_SAVED)
planted(function_number signed DEFINITIONS "FUNCTION_SIGNING=__ptrauth(0, 1, 1)")
planted(function_place signed DEFINITIONS "FUNCTION_SIGNING=__ptrauth(0, 0, 0)")
planted(function_key signed DEFINITIONS "FUNCTION_SIGNING=__ptrauth(1, 1, 0)")
planted(function_plain signed DEFINITIONS "FUNCTION_SIGNING=")
planted(class_plain signed DEFINITIONS "CLASS_SIGNING=")

set(damage "${CMAKE_SOURCE_DIR}/tests/device/damage.py")
foreach(kind number place key table unsigned_table initialiser unsigned_initialiser version plain_arm64
    rebases)
  set(output "${CMAKE_BINARY_DIR}/planted/damaged_${kind}.dylib")
  set(sound "${CMAKE_BINARY_DIR}/planted/signed.dylib")
  add_custom_command(OUTPUT "${output}"
    COMMAND "${PYTHON3}" -B "${damage}" "${kind}" "${sound}" "${output}"
    DEPENDS "${sound}" "${damage}" VERBATIM)
  set_property(GLOBAL APPEND PROPERTY planted_libraries "${output}")
endforeach()
