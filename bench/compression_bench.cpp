// Compression of a file of 50 MB into another, compared with zlib driven by hand with buffers of
// the same sizes. The argument is the level; decompression has none.
//
// peak_KB is how much memory the process needs beyond what it had before, at its highest: zlib's
// own state and the buffers, of 40 KB.
#include <quorvel/framework/file.h>
#include <quorvel/util/compression/compression.h>
#include <quorvel/util/compression/zstream.h>

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::size_t kFileSize = 50000000;
constexpr UINT kPlainSize = 32768;
constexpr UINT kPackedSize = 8192;

// Text as logs have it: words, numbers and much that comes again.
std::string SomeLog() {
    static const char* const kWords[] = {"opened", "the file", "closed", "a connection to",
                                         "failed", "retrying", "user",   "in"};
    std::string text;
    text.reserve(kFileSize + 100);
    for (unsigned i = 0, random = 1; text.size() < kFileSize; ++i) {
        random = random * 1664525 + 1013904223;
        text += std::to_string(i) + ' ' + kWords[random >> 29] + ' ' + kWords[random >> 26 & 7];
        text += ' ' + std::to_string(random >> 8) + '\n';
    }
    text.resize(kFileSize);
    return text;
}

// The files, in a folder of their own as long as the program runs.
class Files {
public:
    static const Files& Get() {
        static const Files s_files;
        return s_files;
    }
    ~Files() {
        for (const std::string& name : {Plain(), Packed(), Output()})
            unlink(name.c_str());
        rmdir(m_folder.c_str());
    }
    std::string Plain() const { return m_folder + "/plain"; }
    std::string Packed() const { return m_folder + "/packed"; }
    std::string Output() const { return m_folder + "/output"; }

private:
    Files() {
        char folder[] = "/tmp/quorvel-bench-XXXXXX";
        m_folder = mkdtemp(folder);
        const std::string text = SomeLog();
        uLongf size = compressBound(text.size());
        const auto packed = std::make_unique<char[]>(size);
        compress(reinterpret_cast<Bytef*>(packed.get()), &size,
                 reinterpret_cast<const Bytef*>(text.data()), text.size());
        std::ofstream(Plain(), std::ios::binary) << text;
        std::ofstream(Packed(), std::ios::binary)
            .write(packed.get(), static_cast<std::streamsize>(size));
    }
    std::string m_folder;
};

long MemoryKB(const char* field) {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line))
        if (line.starts_with(field))
            return std::atol(line.c_str() + line.find(':') + 1);
    return 0;
}

class PeakMemory {
public:
    explicit PeakMemory(benchmark::State& state) : m_state(state) {
        std::ofstream("/proc/self/clear_refs") << 5; // the peak is now what there is
        m_start = MemoryKB("VmRSS");
    }
    PeakMemory(const PeakMemory&) = delete;
    ~PeakMemory() {
        m_state.counters["peak_KB"] = static_cast<double>(MemoryKB("VmHWM") - m_start);
    }

private:
    benchmark::State& m_state;
    long m_start;
};

// Runs `convert` from one file into another until there is enough to tell.
template <class Convert>
void Measure(benchmark::State& state, const std::string& from, Convert convert) {
    const PeakMemory memory(state);
    for (auto _ : state)
        if (!convert(from, Files::Get().Output()))
            state.SkipWithError("failed");
    state.SetBytesProcessed(static_cast<std::int64_t>(kFileSize) * state.iterations());
}

struct OpenFiles {
    OpenFiles(const std::string& from, const std::string& to)
        : source(CString(from.c_str()), CFile::modeRead),
          destination(CString(to.c_str()), CFile::modeCreate | CFile::modeWrite) {}
    CFile source;
    CFile destination;
};

void DeflateFunction(benchmark::State& state) {
    const int level = static_cast<int>(state.range(0));
    Measure(state, Files::Get().Plain(), [=](const std::string& from, const std::string& to) {
        OpenFiles files(from, to);
        DWORD bytesRead, bytesWritten;
        return AfxDeflate(files.source, bytesRead, files.destination, bytesWritten, level, FALSE,
                          nullptr, nullptr);
    });
}

void InflateFunction(benchmark::State& state) {
    Measure(state, Files::Get().Packed(), [](const std::string& from, const std::string& to) {
        OpenFiles files(from, to);
        DWORD bytesRead, bytesWritten;
        return AfxInflate(files.source, bytesRead, files.destination, bytesWritten, FALSE, nullptr,
                          nullptr);
    });
}

void DeflateStream(benchmark::State& state) {
    const int level = static_cast<int>(state.range(0));
    Measure(state, Files::Get().Plain(), [=](const std::string& from, const std::string& to) {
        OpenFiles files(from, to);
        CZStream stream;
        UINT written;
        return stream.DeflateInit(level) &&
               stream.Deflate(files.source, kPlainSize, files.destination, written) == 1 &&
               stream.DeflateEnd();
    });
}

void InflateStream(benchmark::State& state) {
    Measure(state, Files::Get().Packed(), [](const std::string& from, const std::string& to) {
        OpenFiles files(from, to);
        CZStream stream;
        UINT written;
        return stream.InflateInit() == 0 &&
               stream.Inflate(files.source, 0xffffffff, files.destination, written) == 1 &&
               stream.InflateEnd() == 0;
    });
}

// As one writes it by hand, with the system's own files.
class RawFiles {
public:
    RawFiles(const std::string& from, const std::string& to)
        : m_source(open(from.c_str(), O_RDONLY)),
          m_destination(open(to.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666)) {}
    RawFiles(const RawFiles&) = delete;
    ~RawFiles() {
        close(m_source);
        close(m_destination);
    }
    void Read(z_stream& stream, Bytef* buffer, UINT size) const {
        stream.next_in = buffer;
        stream.avail_in = static_cast<UINT>(read(m_source, buffer, size));
    }
    bool Write(const Bytef* buffer, UINT size) const {
        return write(m_destination, buffer, size) == static_cast<ssize_t>(size);
    }

private:
    const int m_source;
    const int m_destination;
};

bool DeflateByHand(const std::string& from, const std::string& to, int level) {
    const RawFiles files(from, to);
    z_stream stream = {};
    deflateInit(&stream, level);
    Bytef input[kPlainSize];
    Bytef output[kPackedSize];
    int code = Z_OK;
    bool written = true;
    do {
        files.Read(stream, input, kPlainSize);
        const int flush = stream.avail_in == 0 ? Z_FINISH : Z_NO_FLUSH;
        do {
            stream.next_out = output;
            stream.avail_out = kPackedSize;
            code = deflate(&stream, flush);
            written = files.Write(output, kPackedSize - stream.avail_out) && written;
        } while (stream.avail_out == 0);
    } while (code == Z_OK);
    deflateEnd(&stream);
    return code == Z_STREAM_END && written;
}

bool InflateByHand(const std::string& from, const std::string& to) {
    const RawFiles files(from, to);
    z_stream stream = {};
    inflateInit(&stream);
    Bytef input[kPackedSize];
    Bytef output[kPlainSize];
    int code = Z_OK;
    bool written = true;
    do {
        if (stream.avail_in == 0)
            files.Read(stream, input, kPackedSize);
        stream.next_out = output;
        stream.avail_out = kPlainSize;
        code = inflate(&stream, Z_NO_FLUSH);
        written = files.Write(output, kPlainSize - stream.avail_out) && written;
    } while (code == Z_OK);
    inflateEnd(&stream);
    return code == Z_STREAM_END && written;
}

void DeflateZlib(benchmark::State& state) {
    const int level = static_cast<int>(state.range(0));
    Measure(state, Files::Get().Plain(), [=](const std::string& from, const std::string& to) {
        return DeflateByHand(from, to, level);
    });
}

void InflateZlib(benchmark::State& state) {
    Measure(state, Files::Get().Packed(), InflateByHand);
}

void Levels(benchmark::internal::Benchmark* bench) {
    bench->Unit(benchmark::kMillisecond)->Arg(1)->Arg(6);
}
BENCHMARK(DeflateFunction)->Name("Deflate/AfxDeflate")->Apply(Levels);
BENCHMARK(DeflateZlib)->Name("Deflate/zlib")->Apply(Levels);
BENCHMARK(DeflateStream)->Name("ZStreamDeflate/CZStream")->Apply(Levels);
BENCHMARK(DeflateZlib)->Name("ZStreamDeflate/zlib")->Apply(Levels);
BENCHMARK(InflateFunction)->Name("Inflate/AfxInflate")->Unit(benchmark::kMillisecond);
BENCHMARK(InflateZlib)->Name("Inflate/zlib")->Unit(benchmark::kMillisecond);
BENCHMARK(InflateStream)->Name("ZStreamInflate/CZStream")->Unit(benchmark::kMillisecond);
BENCHMARK(InflateZlib)->Name("ZStreamInflate/zlib")->Unit(benchmark::kMillisecond);

} // namespace
