// Documents to measure XML with: the same bytes on every run and machine.
#pragma once

#include <cstddef>
#include <string>

enum class XmlCorpus { Rss, Attributes, Tiny, Text, Russian, Japanese };

constexpr std::size_t kSmallXml = 100'000;
constexpr std::size_t kLargeXml = 30'000'000;

// A well-formed UTF-8 document of about that many bytes (Tiny: two thirds of them when large).
std::string MakeXml(XmlCorpus corpus, std::size_t size);
