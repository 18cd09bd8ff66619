# Paths as desktop entries write them (freedesktop.org, Desktop Entry 1.5).

# A value.
function(orvel_entry_text variable path)
  string(REPLACE "\\" "\\\\" text "${path}")
  set(${variable} "${text}" PARENT_SCOPE)
endfunction()

# A word of a command line: an argument in quotation marks, and then that as a value.
function(orvel_entry_word variable path)
  string(REGEX REPLACE "([\"`$\\])" "\\\\\\1" word "${path}")
  string(REPLACE "%" "%%" word "${word}")
  orvel_entry_text(text "\"${word}\"")
  set(${variable} "${text}" PARENT_SCOPE)
endfunction()
