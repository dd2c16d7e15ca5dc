#include "xml_corpora.h"

#include <cstdio>
#include <random>
#include <vector>

namespace {

constexpr const char* kWords[] = {
    "lorem",  "ipsum",   "dolor",   "sit",     "amet",      "consectetur", "adipiscing", "elit",
    "sed",    "do",      "eiusmod", "tempor",  "ut",        "labore",      "et",         "magna",
    "minim",  "nostrud", "ullamco", "laboris", "consequat", "voluptate",   "pariatur",   "update",
    "server", "client",  "version", "window",  "installer", "package",     "driver",     "network"};
constexpr const char* kForeign[] = {"Straße", "naïve",   "Übergröße", "señor", "Ελλάδα", "Москва",
                                    "日本語", "čeština", "“quoted”",  "—",     "€",      "😀"};
constexpr const char* kRussian[] = {
    "обновление",   "программа", "сервер",    "и",      "в",        "на",
    "настройки",    "окно",      "версия",    "новая",  "каждый",   "файл",
    "пользователь", "может",     "сохранить", "после",  "документ", "сеть",
    "через",        "около",     "проверка",  "готова", "список",   "клавиша"};
constexpr const char* kJapanese[] = {
    "更新",   "の",   "プログラム", "を",   "確認", "する",         "ファイル", "が",
    "新しい", "版",   "設定",       "画面", "に",   "保存",         "された",   "利用者",
    "は",     "選択", "できる",     "文書", "一覧", "ネットワーク", "接続",     "後で"};
constexpr const char* kEntities[] = {"&amp;", "&lt;", "&gt;", "&quot;", "&#233;", "&apos;"};

// One generator a corpus. Only the raw output of the engine is used: the standard's distributions
// differ between libraries.
class Writer {
public:
    explicit Writer(unsigned seed) : m_random(seed) {}

    int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    int Between(int low, int high) { return low + Below(high - low + 1); }
    template <std::size_t count>
    const char* OneOf(const char* const (&texts)[count]) {
        return texts[Below(count)];
    }
    const char* Word() { return OneOf(kWords); }
    std::string Words(int count) {
        std::string text = Word();
        while (--count > 0)
            text.append(" ").append(Word());
        return text;
    }
    // Words, 6 % of them with letters beyond ASCII and 1 % entities.
    std::string Prose(int count) {
        std::string text = Word();
        while (--count > 0) {
            const int kind = Below(100);
            text += ' ';
            text += kind < 6 ? OneOf(kForeign) : kind < 7 ? OneOf(kEntities) : Word();
        }
        return text;
    }

private:
    std::mt19937 m_random;
};

template <class... Arguments>
std::string Format(const char* format, Arguments... arguments) {
    char text[256];
    std::snprintf(text, sizeof text, format, arguments...);
    return text;
}

std::string RssItem(Writer& writer) {
    std::string item = "\t\t<item>\r\n\t\t\t<title>" + writer.Words(3) + "</title>\r\n\t\t\t<link>";
    item += Format("http://www.example.org/updates/%s/%d/index.html", writer.Word(),
                   writer.Below(100000));
    item += "</link>\r\n\t\t\t<description>" + writer.Words(writer.Between(15, 60));
    if (writer.Below(5) == 0)
        item += " &amp; more &lt;b&gt;" + writer.Words(2);
    const int day = writer.Between(1, 28);
    const int year = writer.Below(29);
    item += Format("</description>\r\n\t\t\t<pubDate>Tue, %02d Jun 20%02d 12:%02d:00 GMT</pubDate>"
                   "\r\n\t\t\t<priority>%d</priority>\r\n\t\t</item>\r\n",
                   day, year, writer.Below(60), writer.Below(6));
    return item;
}

std::string Path(Writer& writer) {
    std::string path = Format("    <path id=\"p%d\" d=\"M ", writer.Below(100000));
    for (int points = writer.Between(2, 9); points > 0; --points)
        path += Format("%d.%02d %d.%02d L ", writer.Below(999), writer.Below(100),
                       writer.Below(999), writer.Below(100));
    return path + Format("0 0\" fill=\"#%06x\" stroke=\"#000000\" opacity=\"0.%d\"/>\n",
                         static_cast<unsigned>(writer.Below(1 << 24)), writer.Between(1, 9));
}

std::string Group(Writer& writer) {
    std::string group = Format("  <g id=\"g%d\" class=\"layer %s\" transform=\"rotate(%d)\">\n",
                               writer.Below(100000), writer.Word(), writer.Below(360));
    for (int shapes = writer.Between(3, 10); shapes > 0; --shapes) {
        const int kind = writer.Below(3);
        if (kind == 0) {
            group += Path(writer);
        } else if (kind == 1) {
            group += Format("    <rect id=\"r%d\" x=\"%d\" y=\"%d\" width=\"%d\" height=\"%d\" "
                            "style=\"stroke:none;fill-rule:evenodd\" />\n",
                            writer.Below(100000), writer.Below(1000), writer.Below(1000),
                            writer.Below(1000), writer.Below(1000));
        } else {
            group += Format("    <setting name='%s.%s' type=\"string\" value=\"", writer.Word(),
                            writer.Word());
            group += writer.Words(writer.Between(1, 6));
            group += "\" visible=\"yes\" readonly='no'></setting>\n";
        }
    }
    return group + "  </g>\n";
}

std::string TinyTags(Writer& writer) {
    constexpr const char* kNames[] = {"i", "n", "v1", "key"};
    std::string tags;
    std::string open; // one-letter names
    for (int count = writer.Between(40, 200); count > 0; --count) {
        const int kind = writer.Below(100);
        const char letter = static_cast<char>('a' + writer.Below(8));
        if (kind < 35 && open.size() < 40) {
            open += letter;
            tags += {'<', letter, '>'};
        } else if (kind < 55) {
            tags += {'<', letter, '/', '>'};
        } else if (kind < 75) {
            const char* name = writer.OneOf(kNames);
            tags += Format("<%s>%d</%s>", name, writer.Below(100), name);
        } else if (!open.empty()) {
            tags += {'<', '/', open.back(), '>'};
            open.pop_back();
        }
    }
    for (; !open.empty(); open.pop_back())
        tags += {'<', '/', open.back(), '>'};
    return tags;
}

std::string Section(Writer& writer) {
    std::string section = "<section><h>" + writer.Prose(6) + "</h>\n";
    for (int count = writer.Between(1, 5); count > 0; --count) {
        const int kind = writer.Below(100);
        if (kind < 60)
            section += "<p>" + writer.Prose(writer.Between(20, 120)) + " <b>" + writer.Prose(2) +
                       "</b> " + writer.Prose(writer.Between(5, 80)) + "</p>\n";
        else if (kind < 75)
            section += "<!-- note: " + writer.Prose(20) + " <p>not an element</p> -->\n";
        else if (kind < 95)
            section += "<code><![CDATA[if (a < b && c > d) { " + writer.Prose(30) + "; } ]] > " +
                       writer.Prose(30) + "]]></code>\n";
        else
            section += Format("<?page break=\"%d\" <no/> ?>\n", writer.Between(1, 99));
    }
    return section + "</section>\n";
}

// An article in a language that is not written in ASCII.
template <std::size_t count>
std::string Article(Writer& writer, const char* const (&words)[count], const char* blank,
                    const char* stop) {
    const auto sentence = [&] {
        std::string text = writer.OneOf(words);
        for (int more = writer.Between(4, 14); more > 0; --more)
            text.append(blank).append(writer.OneOf(words));
        return text += stop;
    };
    std::string article = Format("<article id=\"%d\">\n<title>", writer.Below(100000));
    article += sentence() + "</title>\n";
    for (int paragraphs = writer.Between(2, 6); paragraphs > 0; --paragraphs) {
        article += "<p>";
        for (int sentences = writer.Between(2, 9); sentences > 0; --sentences)
            article += sentence();
        article += "</p>\n";
    }
    return article + "</article>\n";
}

std::string RussianArticle(Writer& writer) {
    return Article(writer, kRussian, " ", ". ");
}

std::string JapaneseArticle(Writer& writer) {
    return Article(writer, kJapanese, "", "。");
}

struct Shape {
    const char* head;
    std::string (*part)(Writer&);
    const char* tail;
};

constexpr Shape kShapes[] = {
    {"<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n<rss version=\"2.0\">\r\n\t<channel>\r\n",
     RssItem, "\t</channel>\r\n</rss>\r\n"},
    {"<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!DOCTYPE svg [ <!ENTITY x \"y\"> ]>\n"
     "<svg width=\"100\" height=\"100\">\n",
     Group, "</svg>\n"},
    {"<?xml version=\"1.0\"?>\n<r>", TinyTags, "</r>\n"},
    {"<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!-- head -->\n<doc>\n", Section, "</doc>\n"},
    {"<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<doc>\n", RussianArticle, "</doc>\n"},
    {"<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<doc>\n", JapaneseArticle, "</doc>\n"},
};

} // namespace

std::string MakeXml(XmlCorpus corpus, std::size_t size) {
    constexpr int kParts = 4000; // drawn from again and again: more would only take longer
    const Shape& shape = kShapes[static_cast<int>(corpus)];
    if (corpus == XmlCorpus::Tiny && size == kLargeXml)
        size = size / 3 * 2;
    Writer writer(static_cast<unsigned>(corpus) + 1);
    std::vector<std::string> parts;
    std::string text = shape.head;
    while (text.size() < size) {
        if (parts.size() < kParts)
            text += parts.emplace_back(shape.part(writer));
        else
            text += parts[static_cast<std::size_t>(writer.Below(kParts))];
    }
    return text += shape.tail;
}
