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

    // That the file holds no jumps, as the linker asks of each before it marks a program as guarded.
#if defined(__CET__)
#include <cet.h>
#elif defined(__ARM_FEATURE_BTI_DEFAULT)
    .section .note.gnu.property, "a"
    .balign 8
    .word 4, 16, 5  // lengths of name and content; NT_GNU_PROPERTY_TYPE_0
    .asciz "GNU"
    .word 0xc0000000, 4, 3, 0  // GNU_PROPERTY_AARCH64_FEATURE_1_AND: BTI and PAC
#endif
