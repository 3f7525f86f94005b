# What an earlier tour has left must not pass for the next one's.
file(REMOVE_RECURSE "${TOUR}" "${HOME}")
file(MAKE_DIRECTORY "${HOME}")
