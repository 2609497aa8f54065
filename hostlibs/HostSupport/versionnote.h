#ifndef HOSTSUPPORT_VERSIONNOTE_H
#define HOSTSUPPORT_VERSIONNOTE_H

/// Gives the library or program that is being compiled a named text, which sp_GetFileVersionString() reads
/// without loading it: an ELF note of type 1 whose owner is the name. At file scope, with two literals:
///
///     HOSTSUPPORT_VERSION_NOTE("PythonVersion", "3.11");
#define HOSTSUPPORT_VERSION_NOTE(name, text)                                                                 \
    __asm__(".pushsection .note.halvorin.version,\"a\",%note\n"                                              \
            ".balign 4\n"                                                                                    \
            ".long 2f - 1f\n"                                                                                \
            ".long 4f - 3f\n"                                                                                \
            ".long 1\n"                                                                                      \
            "1: .asciz \"" name "\"\n"                                                                       \
            "2: .balign 4\n"                                                                                 \
            "3: .asciz \"" text "\"\n"                                                                       \
            "4: .balign 4\n"                                                                                 \
            ".popsection\n")

#endif
