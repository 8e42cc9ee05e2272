# The emoji table behind host/base/Emoji.h is generated at build time from
# Unicode's emoji test data, as the Debian package unicode-data installs it.
# tools/emoji/generate_emoji_table reads the file and writes a C++ source
# that is compiled into zohost.
set(ZO_EMOJI_TEST_FILE /usr/share/unicode/emoji/emoji-test.txt
    CACHE FILEPATH "Unicode's emoji-test.txt, from which the emoji table is generated")
if(NOT EXISTS ${ZO_EMOJI_TEST_FILE})
  message(FATAL_ERROR "${ZO_EMOJI_TEST_FILE} not found: the emoji table is generated from it. Install the Debian "
                      "package unicode-data (scripts/install-deps.sh does), or set ZO_EMOJI_TEST_FILE to a copy.")
endif()

set(ZO_EMOJI_TOOL_DIR ${CMAKE_SOURCE_DIR}/tools/emoji)
add_executable(generate_emoji_table ${ZO_EMOJI_TOOL_DIR}/generate_emoji_table.cpp
                                    ${ZO_EMOJI_TOOL_DIR}/EmojiTestParser.cpp ${ZO_EMOJI_TOOL_DIR}/EmojiTableWriter.cpp)
# The generator runs during the build. A sanitizer build's runtime may not
# start there (ThreadSanitizer needs setarch on newer kernels), and it is not
# what the sanitizer builds test.
target_compile_options(generate_emoji_table PRIVATE -fno-sanitize=all)
target_link_options(generate_emoji_table PRIVATE -fno-sanitize=all)

set(ZO_EMOJI_TABLE ${CMAKE_BINARY_DIR}/generated/EmojiTable.cpp)
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/generated)
add_custom_command(OUTPUT ${ZO_EMOJI_TABLE}
  COMMAND generate_emoji_table ${ZO_EMOJI_TEST_FILE} ${ZO_EMOJI_TABLE}
  DEPENDS generate_emoji_table ${ZO_EMOJI_TEST_FILE}
  COMMENT "Generating the emoji table from ${ZO_EMOJI_TEST_FILE}"
  VERBATIM)
target_sources(zohost PRIVATE ${ZO_EMOJI_TABLE})
