# Writes the page PAGE of the reference: the message definitions of the folder PROTOS as they stand.
file(GLOB files "${PROTOS}/*.proto")
set(page "# Messages {#messages}\n\nThe classes `Tav::<Area>::…` are generated from these definitions.\n")
foreach(file IN LISTS files)
    get_filename_component(area "${file}" NAME_WE)
    file(READ "${file}" text)
    string(APPEND page "\n## ${area}.proto\n\n~~~\n${text}~~~\n")
endforeach()
file(WRITE "${PAGE}" "${page}")
