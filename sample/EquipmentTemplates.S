// Access databases of the test data, as bytes of the program: sample databases are made of them.
#define TEMPLATE(name, file) \
    .balign 8; \
    .globl name##_begin; name##_begin: .incbin file; \
    .globl name##_end; name##_end: .byte 0

    .data
    TEMPLATE(velmo_access_small, "date_first_column.mdb")
    TEMPLATE(velmo_access_2000, "plain_datetime_v2000.mdb")
    TEMPLATE(velmo_access_2003, "plain_datetime_v2003.mdb")
    TEMPLATE(velmo_access_2007, "plain_datetime_v2007.accdb")
    TEMPLATE(velmo_access_2010, "text_date_v2010.accdb")
#ifdef __ELF__
    .section .note.GNU-stack, "", %progbits
#endif
