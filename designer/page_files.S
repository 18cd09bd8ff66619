    .macro embed name, file
    .globl \name
\name:
    .incbin "\file"
    .globl \name\()End
\name\()End:
    .byte 0
    .endm

    .section .rodata
    embed orvelPageIndex, "page/index.html"
    embed orvelPageStyle, "page/style.css"
    embed orvelPageMain, "page/main.js"
    embed orvelPageServer, "page/server.js"
    embed orvelPageForm, "page/form.js"
    embed orvelPageDesigns, "page/designs.js"
    embed orvelPageSymbols, "page/symbols.js"
    embed orvelPageTarget, "page/target.js"
    embed orvelPageIcon, "page/icon.svg"
    .section .note.GNU-stack, "", %progbits
