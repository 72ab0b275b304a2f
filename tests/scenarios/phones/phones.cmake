# The phones that run SpringBoard as arm64e, and one round of use for each: round_of_use.scenario.in with
# the numbers of the phone. rounds_of_use(LIST) makes the scenarios in the build folder and names them.
# By hand from the width W and the height H, in points: five buttons of 60 leave gaps of (W - 300) / 6;
# three toggles of 50 and a slider of 120 leave gaps of (W - 270) / 5; turned, two pages as wide as W
# begin (H - 2 W) / 2 from the left, on the shortest phone so beyond its edge. The home button is 2 where
# there is none. The radius of the corners is 30 up to the last phone that has a name in the library.
set(phones
  # machine |name             |known as      |iOS |W  |H  |button|radius|button gap|toggle gap|turned
  "iPhone11,2|iPhone XS        |iPhone XS     |12.4|375|812|2|30|12.5     |21  |31"
  "iPhone11,4|iPhone XS Max    |iPhone XS Max |12.4|414|896|2|30|19       |28.8|34"
  "iPhone11,6|iPhone XS Max    |iPhone XS Max |12.4|414|896|2|30|19       |28.8|34"
  "iPhone11,8|iPhone XR        |iPhone XR     |12.4|414|896|2|30|19       |28.8|34"
  "iPhone12,1|iPhone 11        |unknown device|13.3|414|896|2|10|19       |28.8|34"
  "iPhone12,3|iPhone 11 Pro    |unknown device|13.3|375|812|2|10|12.5     |21  |31"
  "iPhone12,5|iPhone 11 Pro Max|unknown device|13.3|414|896|2|10|19       |28.8|34"
  "iPhone12,8|iPhone SE of 2020|unknown device|13.5|375|667|0|10|12.5     |21  |-41.5"
  "iPhone13,1|iPhone 12 mini   |unknown device|14.2|375|812|2|10|12.5     |21  |31"
  "iPhone13,2|iPhone 12        |unknown device|14.2|390|844|2|10|15       |24  |32"
  "iPhone13,3|iPhone 12 Pro    |unknown device|14.2|390|844|2|10|15       |24  |32"
  "iPhone13,4|iPhone 12 Pro Max|unknown device|14.2|428|926|2|10|21.333333|31.6|35")

set(rounds_folder "${CMAKE_CURRENT_LIST_DIR}")

function(rounds_of_use list)
  set(made)
  foreach(phone IN LISTS phones)
    string(REGEX REPLACE " *\\| *" ";" columns "${phone}")
    set(names PHONE NAME MODEL SYSTEM WIDTH HEIGHT BUTTON RADIUS BUTTON_GAP TOGGLE_GAP GRID_X)
    foreach(name value IN ZIP_LISTS names columns)
      set("${name}" "${value}")
    endforeach()
    set(scenario "${CMAKE_BINARY_DIR}/scenarios/phones/${PHONE}.scenario")
    configure_file("${rounds_folder}/round_of_use.scenario.in" "${scenario}" @ONLY)
    list(APPEND made "${scenario}")
  endforeach()
  set("${list}" "${made}" PARENT_SCOPE)
endfunction()
