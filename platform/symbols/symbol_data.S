    .macro embed name, file
    .balign 16
    .globl \name
\name:
    .incbin "\file"
    .globl \name\()End
\name\()End:
    .byte 0
    .endm

    .section .rodata
    embed orvelFirstFont, ORVEL_FIRST_FONT
    embed orvelSecondFont, ORVEL_SECOND_FONT
    embed orvelSecondFontFilled, ORVEL_SECOND_FONT_FILLED
    embed orvelSecondCodes, ORVEL_SECOND_CODES
    embed orvelRespelled, ORVEL_RESPELLED
    embed orvelSecondSet, ORVEL_SECOND_SET
    embed orvelDrawn, ORVEL_DRAWN
    embed orvelComposed, ORVEL_COMPOSED
    embed orvelSynonyms, ORVEL_SYNONYMS
    embed orvelEnclosable, ORVEL_ENCLOSABLE
    .section .note.GNU-stack, "", %progbits
