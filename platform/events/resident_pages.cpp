#include "platform/events/resident_pages.h"

#include <link.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>

namespace orvel {

void releaseProgramPages() {
    const auto releaseOne = [](dl_phdr_info* object, std::size_t, void*) {
        const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
        for (int i = 0; i < object->dlpi_phnum; ++i) {
            const auto& segment = object->dlpi_phdr[i];
            // What may be written differs from its file; the rest is the file's.
            if (segment.p_type != PT_LOAD || (segment.p_flags & PF_W)) continue;
            const std::uintptr_t start = (object->dlpi_addr + segment.p_vaddr) / page * page;
            const std::uintptr_t end = (object->dlpi_addr + segment.p_vaddr + segment.p_filesz) / page * page;
            if (end > start) ::madvise(reinterpret_cast<void*>(start), end - start, MADV_DONTNEED);
        }
        return 0;
    };
    ::dl_iterate_phdr(releaseOne, nullptr);
}

}  // namespace orvel
