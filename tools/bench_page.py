"""Writes the results of the benchmarks as docs/performance.md: every figure comes from the run."""

import os
import re
import statistics

SMALL, LARGE = "100000", "30000000"
CORPORA = ["RSS", "attributes", "tiny tags", "text"]  # by their numbers

HEAD = """# Performance

`./run bench` has compared the library with what a host would otherwise call, and has written this page. A
ratio above 1 means that the library is faster than its peer. A benchmark and its peers take turns in one run;
a ratio is that of the medians of five repetitions, in processor time unless a row says otherwise. Where the
ratios of the five differ by more than a fifth, the lowest and the highest stand in brackets.

"""

NOTES = """A text that is nearly one piece gains least against pugixml, which keeps its bytes as they are. Here they
become UTF-16, and twice the memory is touched for the first time. A load may take 2 bytes a character, 32
bytes a record of the index and 4 MB at its peak. In a new process it took """


def number(value):
    if value >= 9.95:
        return f"{value:.0f}"
    return f"{value:.2f}" if value < 1.195 else f"{value:.1f}"


def duration(nanoseconds):
    for unit, size in (("ms", 1e6), ("us", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}"
    return f"{nanoseconds:.3g} ns"


def listed(texts):
    return texts[0] if len(texts) == 1 else f"{', '.join(texts[:-1])} and {texts[-1]}"


def faster(ratios):
    """Nothing to say of what was not measured."""
    return f"{ratios} times as fast" if re.search(r"\d", ratios) else "-"


class Page:
    def __init__(self, results):
        self.results = results
        self.lines = []

    def ratio(self, family, who, case):
        ratios = self.results.ratios(family, who, case)
        if ratios is None:
            return "-"
        median, lowest, highest = ratios
        spread = f" ({number(lowest)} to {number(highest)})" if highest - lowest > median / 5 else ""
        return number(median) + spread

    def ratios(self, family, who, *cases):
        return listed([self.ratio(family, who, case) for case in cases or ("",)])

    def mean(self, family, who, size):
        ratios = [self.results.ratios(family, who, f"{corpus}/{size}") for corpus in range(4)]
        ratios = [ratio[0] for ratio in ratios if ratio]
        return number(statistics.geometric_mean(ratios)) if ratios else "-"

    def times(self, *names):
        found = [self.results.time(name) for name in names]
        return listed([duration(time) if time else "-" for time in found])

    def allocations(self, name):
        count = self.results.counter(name, "allocations")
        if count is None:
            return ""
        return f", {count:.0f} allocations" if count >= 0.5 else ", no allocation"

    def text(self, text):
        self.lines.append(text)

    def table(self, heading, rows):
        self.lines.append("| " + " | ".join(heading) + " |")
        self.lines.append("|---" * len(heading) + "|")
        self.lines += ["| " + " | ".join(row) + " |" for row in rows]
        self.lines.append("")


def machine(results):
    context = results.machine
    model = "unknown"
    if os.path.exists("/proc/cpuinfo"):
        with open("/proc/cpuinfo", encoding="utf-8") as file:
            text = file.read()
        flags = [name for flag, name in (("ssse3", "SSSE3"), ("avx2", "AVX2"), ("avx512", "AVX-512"))
                 if f" {flag}" in text]
        found = re.search(r"model name\s*: (.*)", text)
        model = f"{found[1] if found else 'unknown'} with {listed(flags or ['no vectors'])}"
    loads = results.loads or [0]
    text = (f"Measured on {context['date'][:10]}, on {context['num_cpus']} processors ({model}). The load of "
            f"the\nmachine was {min(loads):.0f} to {max(loads):.0f} before the programs that measure.")
    if max(loads) > context["num_cpus"]:
        text += " Others used it at the same time, so the figures are rough."
    return text + "\n"


def encodings(page):
    page.text("## Encodings\n")
    sizes = ("64", "16384", "33554432")
    jobs = (("base64 encode, no lines", "Base64Encode", "EVP_EncodeBlock"),
            ("base64 encode, lines of 76", "Base64EncodeLines", "EVP_EncodeBlock"),
            ("base64 decode, no lines", "Base64Decode", "EVP_DecodeBlock"),
            ("base64 decode, lines of 76", "Base64DecodeLines", "EVP_DecodeUpdate"),
            ("MD5", "Md5", "EVP_Digest"))
    page.table(("job", "peer", "64 B", "16 KB", "32 MB"),
               [(job, f"`{who}`", *(page.ratio(family, who, size) for size in sizes))
                for job, family, who in jobs])
    languages = ("ASCII", "German", "Russian", "Japanese", "emoji")
    page.text("Text of 64 KB, compared with ICU, on Linux:\n")
    page.table(("job", *languages),
               [(job, *(page.ratio(family, "ICU", language) for language in languages))
                for job, family in (("UTF-8 to UTF-16", "FromUtf8"), ("UTF-16 to UTF-8", "ToUtf8"))])


def jobs(page):
    page.text("## Other jobs\n")
    escape = page.ratios("Escape", "libxml2", "20", "200", "1400")
    peaks = [page.results.counter(f"{job}{case}", "peak_KB") for job, case in
             (("Deflate/AfxDeflate", "/6"), ("Deflate/zlib", "/6"),
              ("Inflate/AfxInflate", ""), ("Inflate/zlib", ""))]
    memory = "-"
    if None not in peaks:
        more = [f"{round((own - peer) / 1024, 1) + 0:g} MB" for own, peer in (peaks[:2], peaks[2:])]
        memory = f"{listed(more)} more"
    formats = ("Integers", "Texts", "LongText", "General", "Fixed", "LargeFixed")
    weekdays = page.times("NextWeekdays/1000000", "NextWeekdays/2000000000")
    names = page.times(*(f"EncodingCodePage/{i}" for i in range(3)))
    page.table(("job", "peer", "result"), (
        ("percent-escape 20, 200 and 1400 bytes", "libxml2", faster(escape)),
        ("compress a file of 50 MB, level 1 and 6", "zlib by hand, buffers of the same sizes",
         faster(page.ratios("Deflate", "zlib", "1", "6"))),
        ("the same with `CZStream`", "zlib by hand",
         faster(page.ratios("ZStreamDeflate", "zlib", "1", "6"))),
        ("decompress it, with `AfxInflate` and with `CZStream`", "zlib by hand",
         faster(listed([page.ratio("Inflate", "zlib", ""),
                        page.ratio("ZStreamInflate", "zlib", "")]))),
        ("memory for level 6 and for decompression", "zlib by hand", memory),
        ("parse a version number", "`sscanf`", faster(page.ratio("VersionParse", "sscanf", "")) +
         page.allocations("VersionParse/Quorvel")),
        ("format integers, texts, a long text, `%g`, `%.2f` and `%f` of 1e300", "`snprintf`",
         faster(page.ratios("Format", "snprintf", *formats))),
        ("find the n-th day of the week of a month", "Howard Hinnant's date library",
         faster(page.ratio("OrdinalDay", "date", "")) + page.allocations("OrdinalDay/Quorvel")),
        ("go on by 1,000,000 and by 2,000,000,000 weekdays", "-", weekdays),
        ("find an encoding by name: `utf-8`, a longer one, an unknown one", "-", names),
        ("load a catalogue text", "-", page.times("LoadCatalogueText")),
        ("read a number from an open registry key of 1,000 and of 100,000 values",
         "prepared SQLite statement",
         faster(page.ratios("RegistryRead", "by hand", "1000", "100000")) + "; " +
         page.times("RegistryRead/open key/1000", "RegistryRead/open key/100000")),
        ("write one, each a transaction", "prepared SQLite statement",
         faster(page.ratios("RegistryWrite", "by hand", "1000", "100000")) + "; " +
         page.times("RegistryWrite/open key/1000", "RegistryWrite/open key/100000")),
        ("read and write one of 1,000 at a registry path", "-",
         page.times("RegistryRead/path form/1000", "RegistryWrite/path form/1000")),
        ("download 1 GB over loopback, by the clock and in processor time", "libcurl",
         faster(page.ratios("Download", "libcurl", "1GB/clock", "1GB/processor"))),
        ("download 1 KB, each on a connection of its own, by the clock", "libcurl",
         faster(page.ratio("Download", "libcurl", "1KB/clock"))),
        ("the same, each of libcurl's on a thread of its own too", "libcurl",
         faster(page.ratio("Download", "libcurl on a thread", "1KB/clock"))),
        ("download 100 MB over HTTPS with `CHttpsUpdateTransport`, by the clock", "libcurl",
         faster(page.ratio("SecureDownload", "libcurl", "100MB"))),
        ("post and take a status", "-", page.times("PostStatus")),
        ("verify a signed listing of 1 MB", "libsodium's calls alone",
         faster(page.ratio("Signature", "libsodium", "1MB")))))


def lists(page, windows):
    page.text("## Shortcuts and lists\n")
    kinds = ("", ", a third selected", ", all selected")

    def sort(column):
        return faster(page.ratios("RowSort", "stable_sort", *(column + kind for kind in kinds)))

    page.table(("job", "peer", "result"), (
        ("find a shortcut by its command among 10,000", "`std::lower_bound` over a plain vector",
         faster(page.ratio("ShortcutFind", "lower_bound", "10000"))),
        ("make the accelerators of 10,000 commands", "a bare loop",
         faster(page.ratio("Accelerators", "bare loop", "10000"))),
        ("build a scheme of 10,000 and of 100,000 commands in their order", "a plain vector",
         faster(page.ratios("ShortcutBuild", "vector", "10000", "100000"))),
        ("filter 100,000 shortcuts by a text", "bare scan over ready texts, case ignored",
         faster(page.ratio("ShortcutFilter", "bare scan", "100000"))),
        ("sort 100,000 shortcuts by the names of their keys", "sorting ready names",
         faster(page.ratio("ShortcutSort", "ready names", "100000"))),
        ("sort 1,000,000 rows by a text: no row, a third and all of them selected",
         "`std::stable_sort` of the pointers", sort("text")),
        ("the same by a number", "`std::stable_sort` of the pointers", sort("number")),
        ("delete 10,000 rows of 1,000,000, one by one and at once", "a plain vector, one by one",
         faster(page.ratios("RowDelete", "vector", "one by one", "at once"))),
        ("move a row of 1,000,000 down and up again", "-", page.times("RowMove")),
        ("save and load the state of 50 columns", "bare registry calls",
         faster(page.ratios("ColumnState", "bare calls", "save", "load")))))
    if windows:
        page.text("Virtual lists in windows against a bare owner-data list, and the dialog of the check for "
                  "updates\nagainst loading and sorting its listing alone; under Wine, by the clock:\n")
        page.table(("job", "time", "times as fast"), windows)


def xml(page):
    page.text("## XML\n")
    page.text("Compared with pugixml, on documents of 30 MB, and of 100 KB after the semicolon:\n")

    def both(family, cell):
        return "; ".join(cell(family, size) for size in (LARGE, SMALL))

    def row(family, *texts):
        cells = [both(family, lambda name, size, corpus=corpus:
                      page.ratio(name, "pugixml", f"{corpus}/{size}")) for corpus in range(4)]
        return (*texts, *cells, both(family, lambda name, size: page.mean(name, "pugixml", size)))

    page.table(("job", "peer's call", *CORPORA, "mean"), (
        row("XmlReparse", "parse alone", "`parse_minimal`, in place"),
        row("XmlParse", "`SetDoc`, copy and parse", "`load_buffer`"),
        row("XmlLoad", "`AfxLoadXMLFile`", "`load_file`"),
        row("XmlReload", "`AfxLoadXMLFile` into a used document", "`load_file`"),
        row("XmlColdLoad", "`AfxLoadXMLFile` in a new process", "`load_file`")))
    names = [f"XmlColdLoad/AfxLoadXMLFile/{corpus}/{LARGE}" for corpus in range(4)]
    peaks = [[page.results.counter(name, field) for field in ("peak", "allowed")] for name in names]
    peaks = [f"{peak[0]:.0f} of {peak[1]:.0f} MB" for peak in peaks if None not in peak]
    page.text(NOTES + listed(peaks or ["-"]) + ".\n")
    page.text("`AfxLoadXMLFile` of articles of 30 MB in two languages:\n")
    peers = ("pugixml", "RapidXML", "expat", "libxml2")
    page.table(("language", *peers, "pugixml, in a new process"),
               [(language, *(page.ratio("XmlLoadText", peer, f"{corpus}/{LARGE}") for peer in peers),
                 page.ratio("XmlColdLoadText", "pugixml", f"{corpus}/{LARGE}"))
                for corpus, language in ((4, "Russian"), (5, "Japanese"))])
    page.text("Means of the four documents of 30 MB, with TinyXML-2 without the text, which it refuses:\n")
    page.table(("peer", "parse", "load"),
               [(peer, page.mean("XmlParse", peer, LARGE), page.mean("XmlLoad", peer, LARGE))
                for peer in ("RapidXML", "expat", "TinyXML-2", "libxml2")])
    session = "XmlForwardPass<SetEach, Rows::Usual, true>/10000"
    page.table(("job", "peer", "result"), (
        ("save 10 MB", "pugixml", faster(page.ratio("XmlSave", "pugixml", ""))),
        ("parse 30 MB and read five texts of each RSS item", "pugixml",
         faster(page.ratio("XmlReadItems", "pugixml", ""))),
        ("parse 30 MB and read two attributes of each element", "pugixml",
         faster(page.ratio("XmlReadAttributes", "pugixml", ""))),
        ("append 1,000,000 elements and save", "pugixml",
         faster(page.ratio("XmlAppendAndSave", "pugixml", ""))),
        ("parse 5,000,000 levels", "-", page.times("XmlDeep/SetDoc/5000000")),
        ("set an attribute on each element of 10 MB in an edit session", "-", page.times(session))))


def read_windows(path):
    """The rows of the program with windows: what, its time, and how many times as fast it is."""
    if not path or not os.path.exists(path):
        return []
    line = re.compile(r"(.*?) +([\d.]+) ms, bare +[\d.]+ ms, ratio ([\d.]+)")
    with open(path, encoding="utf-8") as file:
        found = [line.match(each) for each in file]
    return [(row[1], duration(float(row[2]) * 1e6), number(1 / float(row[3])))
            for row in found if row]


def write_page(path, results, windows):
    page = Page(results)
    page.text(machine(results))
    encodings(page)
    xml(page)
    lists(page, read_windows(windows))
    jobs(page)
    with open(path, "w", encoding="utf-8") as file:
        file.write(HEAD + "\n".join(page.lines).rstrip() + "\n")
