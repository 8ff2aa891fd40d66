# Rooms that only compute and know nothing of Windows: besides the engine, they are compiled natively for the unit
# tests and the fuzz targets. All of src/text belongs to them; any other room is named here, one file per line.
set(MOVACORE_PURE_ROOMS
  src/batch/condition_parser.cpp
  src/batch/iff_blocks.cpp
  src/batch/labels.cpp
  src/batch/line_splitting.cpp
  src/batch/packed_text.cpp
  src/commands/definition_text.cpp
  src/commands/help_text.cpp
  src/commands/start_switches.cpp
  src/config/colors.cpp
  src/config/directives.cpp
  src/config/ini_parser.cpp
  src/config/key_functions.cpp
  src/config/key_names.cpp
  src/config/protected_text.cpp
  src/config/provenance.cpp
  src/config/setting_values.cpp
  src/config/settings_area.cpp
  src/console/prompt_codes.cpp
  src/core/alias_substitution.cpp
  src/core/association_template.cpp
  src/core/executable_header.cpp
  src/core/extension_variables.cpp
  src/core/invoked_name.cpp
  src/core/redirection_parser.cpp
  src/core/search_order.cpp
  src/core/separators.cpp
  src/core/substitution.cpp
  src/core/zone_mark.cpp
  src/expand/arrays.cpp
  src/expand/decimal.cpp
  src/expand/decimal_functions.cpp
  src/expand/delayed_expansion.cpp
  src/expand/evaluator.cpp
  src/expand/expander.cpp
  src/expand/expander_references.cpp
  src/expand/expansion.cpp
  src/expand/expression_reader.cpp
  src/expand/modifiers.cpp
  src/expand/number_format.cpp
  src/expand/packed_list.cpp
  src/expand/parameters.cpp
  src/expand/path_modifiers.cpp
  src/expand/typed_value.cpp
  src/expand/variable_names.cpp
  src/expand/whole_evaluator.cpp
  src/expand/work_line.cpp
  src/files/dates.cpp
  src/files/directory_name.cpp
  src/files/regex.cpp
  src/files/text_pieces.cpp
  src/files/wildcards.cpp
  src/functions/arguments.cpp
  src/functions/characters.cpp
  src/functions/strings.cpp
  src/functions/word_functions.cpp
  src/internals/dos_name.cpp
  src/lifecycle/start_options.cpp
  src/platform/process_line.cpp
)

file(GLOB movacoreTextRooms CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/text/*.cpp)
list(TRANSFORM MOVACORE_PURE_ROOMS PREPEND ${PROJECT_SOURCE_DIR}/)
list(APPEND MOVACORE_PURE_ROOMS ${movacoreTextRooms})
