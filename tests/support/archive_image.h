// The bytes that an archive stores, and the result of loading from given bytes.
#pragma once

#include <quorvel/framework/archive.h>
#include <quorvel/framework/mem_file.h>

#include "support/exceptions.h"

#include <string>

inline std::string BytesOf(CMemFile& file) {
    file.SeekToBegin();
    std::string bytes(static_cast<std::size_t>(file.GetLength()), '\0');
    file.Read(bytes.data(), static_cast<UINT>(bytes.size()));
    return bytes;
}

template <class Operation>
std::string Stored(Operation store) {
    CMemFile file;
    CArchive archive(&file, CArchive::store);
    store(archive);
    archive.Close();
    return BytesOf(file);
}

// The cause of the exception of an operation on an archive over the bytes; none without one.
template <class Operation>
int LoadCause(std::string bytes, Operation operation, UINT mode = CArchive::load) {
    CMemFile file(reinterpret_cast<BYTE*>(bytes.data()), static_cast<UINT>(bytes.size()));
    CArchive archive(&file, mode);
    return CauseOf<CArchiveException>([&] { operation(archive); });
}
