    .section .rodata
    .balign 16
    .globl orvelSymbolFont
orvelSymbolFont:
    .incbin ORVEL_SYMBOL_FONT
    .globl orvelSymbolFontEnd
orvelSymbolFontEnd:
    .byte 0
    .section .note.GNU-stack, "", %progbits
