# Fails unless the tour in the folder TOUR has the expected lines in its log, each picture that the log names, and has
# left nothing in the user's folder HOME.
cmake_policy(VERSION 3.16)

set(failures "")
function(add_failure text)
    set(failures "${failures}\n${text}" PARENT_SCOPE)
endfunction()

file(STRINGS "${TOUR}/tour.log" log ENCODING UTF-8)

# Regular expressions, each for a whole line of the log. The folder's name is another one in each tour.
set(folder "/.+/home/Documents")
set(expected
    "Table editor: shown: ${folder}/measurements\\.csv"
    "Table editor: table: 24 rows, 6 columns, UTF-8"
    "Table editor: copied a row: 6 fields"
    "Table editor: saved and opened again: ${folder}/saved\\.csv, 24 rows, 6 columns, UTF-8"
    "Table editor: saved and opened again: ${folder}/saved\\.tsv, 24 rows, 6 columns, UTF-8"
    "Table editor: saved and opened again: ${folder}/saved\\.json, 24 rows, 6 columns, UTF-8"
    "Table editor: asked: The table \"edited\\.csv\" has edits that are not saved\\. Do you want to save them\\?"
    "Table editor: edited and saved by keyboard: ${folder}/measurements\\.csv"
    "Table editor: asked: The table \"saved\\.csv\" has edits that are not saved\\. Do you want to save them\\?"
    "Table editor: cancelled loading, and kept: ${folder}/edited\\.csv"
    "Table editor: message: ${folder}/broken\\.json: Line 1, column 29: .+"
    "Open one file: The dialog was cancelled\\."
    "Open one file: The dialog was accepted\\."
    "Open one file: Chosen: ${folder}/notes\\.txt"
    "Open one file: Directory: ${folder}"
    "Open one file: Filter: Text files \\(\\*\\.txt\\)"
    "Open one file: Index of the filter, from 0: 1"
    "Open several files: The dialog was accepted\\."
    "Open several files: Chosen: ${folder}/run-1\\.dat"
    "Open several files: Chosen: ${folder}/run-3\\.dat"
    "Open several files: Index of the filter, from 0: 0"
    "Save a file: The dialog was accepted\\."
    "Save a file: Chosen: ${folder}/summary\\.txt"
    "Save a file: Index of the filter, from 0: 1"
    "Choose a directory: The dialog was accepted\\."
    "Choose a directory: Chosen: ${folder}/results"
    "Choose a directory: Filter: none"
    "Save with a writer: File: ${folder}/sample\\.dat"
    "Save with a writer: File: ${folder}/sample\\.csv"
    "Save with a writer: File: ${folder}/sample\\.htm"
    "Save with a writer: Index of the writer, from 0: 2"
    "Save with a writer: Written: 45 bytes by the writer \"Pages\""
    "Save with a writer: asked: There is a sample \"sample\\.dat\" already\\. Write over it\\?"
    "Save with a writer: asked: File ${folder}/sample\\.dat already exists\\. Do you want to replace it\\?"
    "Native dialog: Expert: on"
    "Native dialog: Preview: off"
    "Native dialog: Button: Rules"
    "Native dialog: File type: 2"
    "Native dialog: Chosen: ${folder}/notes\\.txt"
    "Native dialog: Filter: Text files \\(\\*\\.txt\\)"
    "Native dialog: Option of the accept button: 3"
    "Desktop portal: Never: Names of the columns: yes, Not as a copy"
    "Desktop portal: Always: Names of the columns: no, Not as a copy"
    "Either dialog: The system's dialog, Open one file…; Chosen: ${folder}/run-2\\.dat"
    "Either dialog: The system's dialog, Save…; May be written: ${folder}/either\\.dat"
    "Either dialog: The dialog drawn by Qt, Open several files…; Chosen: ${folder}/run-1\\.dat"
    "Either dialog: The dialog drawn by Qt, Save…; May be written: ${folder}/either\\.dat"
    "Number fields: value: 0\\.3333333333333333"
    "Number fields: 1\\.5e-7 mol/s: Acceptable: .+"
    "Number fields: 1,23 mol/s: Intermediate: .+"
    "Number fields: after steps of one's own: 1\\.5E-06 mol/s and 10"
    "Filtering combo box: names with \"hlw\": 50000"
    "Filtering combo box: form: PRESSURE_Kühlwasser_1; selectionComplete\\(\\)"
    "Filtering combo box: form: PRESSURE_Kühlwasser_1; selectionComplete\\(\\), but the text is no name"
    "Filtering combo box: form: PRESSURE_Kühlwasser_1; editingCanceled\\(\\)"
    "Filtering combo box: table: SPEED_Inlet_1"
    "Labels and buttons: tool tip of a wide label: none"
    "Labels and buttons: tool tip of a narrow label: \"/measurements/2024/run 17/flow of the second valve\\.csv\""
    "Labels and buttons: tool tip of the application's own: \"A tool tip of the application's own\""
    "Helpers: cursors: at work: wait, in the question: none, at work again: wait, afterwards: none"
    "Helpers: heard: 2"
    "Helpers: main window: Gallery of common_ui_qt"
    "Helpers: new families: Gallery Squares"
    "Table copy: copied: A1, B1; B2"
    "Table copy: copied a million cells: 15744133 letters, 9999 line feeds"
    "Table copy: copied: A1, C1; A3, D3, E3; D6"
    "The tour is complete")
foreach(pattern IN LISTS expected)
    set(lines ${log})
    list(FILTER lines INCLUDE REGEX "^${pattern}$")
    if(NOT lines)
        add_failure("no line in the log matches ${pattern}")
    endif()
endforeach()

# As many files as were typed, and no more.
set(chosen ${log})
list(FILTER chosen INCLUDE REGEX "^[^:]+: Chosen: ")
list(LENGTH chosen chosen_count)
if(NOT chosen_count EQUAL 6)
    add_failure("${chosen_count} files were chosen instead of 6")
endif()

set(pictures ${log})
list(FILTER pictures INCLUDE REGEX ": picture ")
list(JOIN pictures "\n" named_pictures)
set(files "")
foreach(page table-editor open-one-file open-several-files save-a-file choose-a-directory save-with-a-writer native-dialog)
    list(APPEND files ${page} ${page}-dialog ${page}-help)
endforeach()
foreach(step number refused edited undone row saved save message)
    list(APPEND files table-editor-${step})
endforeach()
list(APPEND files filtering-combo-box filtering-combo-box-form)
list(APPEND files labels-and-buttons labels-and-buttons-long helpers)
list(APPEND files number-fields number-fields-comma table-copy either-dialog either-dialog-system either-dialog-qt)
foreach(file IN LISTS files)
    if(NOT named_pictures MATCHES ": picture ${file}\\.png, [1-9][0-9]* x [1-9][0-9]*")
        add_failure("the log names no picture ${file}.png")
    endif()
    if(NOT EXISTS "${TOUR}/${file}.png")
        add_failure("no picture ${file}.png")
        continue()
    endif()
    file(SIZE "${TOUR}/${file}.png" size)
    # An even area of this size takes less.
    if(size LESS 8000)
        add_failure("nothing is to be seen in ${file}.png, which has ${size} bytes")
    endif()
endforeach()

file(GLOB_RECURSE left LIST_DIRECTORIES true "${HOME}/*" "${HOME}/.*")
if(left)
    add_failure("the tour has written to the user's home: ${left}")
endif()

if(failures)
    message(FATAL_ERROR "The tour is not as it should be:${failures}")
endif()
