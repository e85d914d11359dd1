// What can be typed in Chinese: the syllables of pinyin and their characters.
#pragma once

#include <QString>

#include <map>
#include <string>

namespace demo {

std::map<std::string, QString> PinyinSyllables();

} // namespace demo
