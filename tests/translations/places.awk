# Prints the sources of a PO file whose translations have other places (%1 to %9) than they have. A
# form of a plural may have those of the source's form for many.
function places(text,    found, i) {
    found = ""
    for (i = 1; i <= 9; ++i)
        if (index(text, "%" i))
            found = found i
    return found
}
function compare(form) {
    if (!("msgid" in entry))
        return
    for (form in entry)
        if (form ~ /^msgstr/ && places(entry[form]) != places(entry["msgid"]) &&
            !("msgid_plural" in entry && places(entry[form]) == places(entry["msgid_plural"]))) {
            print "has other places than its source: " entry["msgid"]
            wrong = 1
        }
    delete entry
}
/^msgid / { compare() }
/^msg/ { field = $1; sub(/^[^ ]+ /, "") }
/^"/ { entry[field] = entry[field] substr($0, 2, length($0) - 2) }
END { compare(); exit wrong }
