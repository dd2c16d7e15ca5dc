// The bytes that an archive stores, and the result of loading from given bytes.
#pragma once

#include <quorvel/framework/archive.h>
#include <quorvel/framework/mem_file.h>

#include "support/exceptions.h"
#include "support/test.h"

#include <algorithm>
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
int LoadCause(std::string bytes, Operation operation) {
    CMemFile file(reinterpret_cast<BYTE*>(bytes.data()), static_cast<UINT>(bytes.size()));
    CArchive archive(&file, CArchive::load);
    return CauseOf<CArchiveException>([&] { operation(archive); });
}

// The value is stored as the image and loaded from it. A part of the image leaves what was there.
template <class Value>
void ExpectImage(Value value, const std::string& image, const Value& former = Value()) {
    SCOPED_TRACE(testing::PrintToString(image.substr(0, 16)));
    const auto store = [&](CArchive& archive) {
        if constexpr (requires { value.Serialize(archive); })
            value.Serialize(archive);
        else
            archive << value;
    };
    EXPECT_EQ(Stored(store), image);
    Value loaded = former;
    const auto load = [&](CArchive& archive) {
        if constexpr (requires { value.Deserialize(archive); })
            loaded.Deserialize(archive);
        else if constexpr (requires { value.Serialize(archive); })
            loaded.Serialize(archive);
        else
            archive >> loaded;
    };
    for (std::size_t length = 0; length < std::min<std::size_t>(image.size(), 16); ++length) {
        EXPECT_EQ(LoadCause(image.substr(0, length), load), CArchiveException::endOfFile) << length;
        EXPECT_TRUE(loaded == former) << length;
    }
    EXPECT_EQ(LoadCause(image, load), CArchiveException::none);
    EXPECT_TRUE(loaded == value);
}
