# Shows ThreadSanitizer the controller, and nothing of the laptop and the tests, which are added after this
# (sim/race_view.h). Needs GCC, the only compiler that can leave files out.
add_compile_definitions(RACE_VIEW)
target_compile_options(controller PRIVATE -finstrument-functions
  -finstrument-functions-exclude-file-list=/usr/,${CMAKE_SOURCE_DIR}/src/os/)
add_custom_command(TARGET controller POST_BUILD COMMAND
  ${CMAKE_OBJCOPY} --redefine-sym __cyg_profile_func_enter=race_view_show $<TARGET_FILE:controller>)
add_compile_options(-finstrument-functions
  -finstrument-functions-exclude-file-list=/usr/,${CMAKE_SOURCE_DIR}/src/,sim/race_view.)
