// What the gallery shows.
#pragma once

#include <vector>

struct Picture {
    const char* name; // the file name without the ending
    bool (*take)(const char* path);
    // Whether it is also taken on a screen of another resolution, and in the colours of high
    // contrast.
    bool isInEverySet = false;
};

extern const std::vector<Picture> kBoxPictures;
extern const std::vector<Picture> kLinkPictures;
extern const std::vector<Picture> kWindowPictures;
extern const std::vector<Picture> kKeyPictures;
extern const std::vector<Picture> kUpdatePictures;
