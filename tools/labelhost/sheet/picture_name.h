// The pictures of sheets as files.
#pragma once

#include "png/picture.h"

#include <string>

// "document-1-page-setup.png".
std::string PictureName(const std::string& kind, int number, const std::string& title);
