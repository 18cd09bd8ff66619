// Preloaded into a program: memory is there for the first FAILING_MALLOC requests, and then for none.
#include <errno.h>
#include <stddef.h>
#include <stdlib.h>

extern void* __libc_malloc(size_t size);
extern void* __libc_calloc(size_t count, size_t size);
extern void* __libc_realloc(void* old, size_t size);

static long left = -1;

__attribute__((constructor)) static void begin(void) {
    const char* const count = getenv("FAILING_MALLOC");
    if (count) left = atol(count);
}

static int fails(void) {
    if (left > 0) --left;
    if (left == 0) errno = ENOMEM;
    return left == 0;
}

void* malloc(size_t size) {
    return fails() ? NULL : __libc_malloc(size);
}

void* calloc(size_t count, size_t size) {
    return fails() ? NULL : __libc_calloc(count, size);
}

void* realloc(void* old, size_t size) {
    return fails() ? NULL : __libc_realloc(old, size);
}
