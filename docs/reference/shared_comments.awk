# Doxygen's input filter. In our headers a comment is about all declarations down to the next
# blank line or comment; for Doxygen that is a member group. Keeps the numbers of the lines.

function end_of_run(    i)
{
    if (documented && declarations > 1) {
        lines[1] = "/** @{ */ " lines[1]
        lines[count] = lines[count] " /** @} */"
    }
    for (i = 1; i <= count; ++i)
        print lines[i]
    count = declarations = documented = 0
}

function opens_a_type()
{
    return /^ *(enum|namespace).*{$/ || (/^ *{$/ && lines[count] ~ /^ *(class|struct)/)
}

/^ *$/ || /^ *\/\// || /^ *};?$/ && !count || /^ *};$/ || /^#/ || /^ *(public|protected|private|Q_SIGNALS)/ || opens_a_type() {
    end_of_run()
    documented = /^ *\/\/\//
    print
    next
}

{
    lines[++count] = $0
    declarations += /[;}]$/
}

END { end_of_run() }
