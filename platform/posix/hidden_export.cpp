// The program's own dynamic symbol table is found in memory through its program headers. A symbol
// is hidden by letting its name be the empty one, at the begin of the string table: the loader
// compares names after it has followed the hash chain, and goes on.

#include "platform/hidden_export.h"

#include <elf.h>
#include <link.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace platform {
namespace {

struct SymbolTable {
    ElfW(Sym) * symbols = nullptr;
    std::size_t count = 0;
    const char* names = nullptr;
};

/// The number of symbols behind a GNU hash table: one more than the highest that a chain holds.
std::size_t symbolCount(const std::uint32_t* hash) {
    const std::uint32_t bucketCount = hash[0];
    const std::uint32_t firstSymbol = hash[1];
    const std::uint32_t bloomWords = hash[2];
    const std::uint32_t* const buckets =
        hash + 4 + std::size_t{bloomWords} * (sizeof(ElfW(Addr)) / sizeof *hash);
    const std::uint32_t* const chains = buckets + bucketCount;
    std::uint32_t last = bucketCount == 0 ? 0 : *std::max_element(buckets, buckets + bucketCount);
    if (last < firstSymbol)
        return firstSymbol;
    while ((chains[last - firstSymbol] & 1) == 0)  // the end of a chain
        ++last;
    return std::size_t{last} + 1;
}

/// Called for the program first; a result other than 0 ends the walk.
int readProgram(dl_phdr_info* program, std::size_t, void* result) {
    const ElfW(Dyn)* dynamic = nullptr;
    for (int at = 0; at < program->dlpi_phnum; ++at)
        if (program->dlpi_phdr[at].p_type == PT_DYNAMIC)
            dynamic = reinterpret_cast<const ElfW(Dyn)*>(program->dlpi_addr +
                                                         program->dlpi_phdr[at].p_vaddr);
    SymbolTable& table = *static_cast<SymbolTable*>(result);
    for (; dynamic && dynamic->d_tag != DT_NULL; ++dynamic) {
        void* const place = reinterpret_cast<void*>(dynamic->d_un.d_ptr);
        if (dynamic->d_tag == DT_SYMTAB)
            table.symbols = static_cast<ElfW(Sym)*>(place);
        else if (dynamic->d_tag == DT_STRTAB)
            table.names = static_cast<const char*>(place);
        else if (dynamic->d_tag == DT_GNU_HASH)
            table.count = symbolCount(static_cast<const std::uint32_t*>(place));
    }
    return 1;
}

bool writeName(ElfW(Sym) * symbol, ElfW(Word) name) {
    const auto pageBytes = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    const auto address = reinterpret_cast<std::uintptr_t>(symbol);
    void* const page = reinterpret_cast<void*>(address / pageBytes * pageBytes);
    const std::size_t length = address % pageBytes + sizeof *symbol;
    if (::mprotect(page, length, PROT_READ | PROT_WRITE) != 0)
        return false;
    symbol->st_name = name;
    ::mprotect(page, length, PROT_READ);
    return true;
}

}  // namespace

HiddenExport::HiddenExport(const char* name) {
    SymbolTable table;
    ::dl_iterate_phdr(readProgram, &table);
    if (!table.symbols || !table.names)
        return;
    ElfW(Sym)* const end = table.symbols + table.count;
    ElfW(Sym)* const found = std::find_if(table.symbols, end, [&](const ElfW(Sym) & symbol) {
        return symbol.st_shndx != SHN_UNDEF && std::strcmp(table.names + symbol.st_name, name) == 0;
    });
    if (found == end)
        return;
    stood_ = found->st_name;
    if (writeName(found, 0))
        place_ = found;
}

HiddenExport::~HiddenExport() {
    if (place_)
        writeName(static_cast<ElfW(Sym)*>(place_), stood_);
}

}  // namespace platform
