#ifndef KEYPAGES_H
#define KEYPAGES_H

// What the keys of a telephone keypad type. For a keypad of your own, copy this file and change it: it needs nothing
// else.
//
// The rows are those of the keys; * and # change the page. All texts are UTF-8. A key types its characters one after
// the other, its digit last. At 16 points bold there is room for about five of them, so that the widest capitals do
// without their digit.

struct KeyPage
{
    const char *name;  // for the keys that lead here
    const char *keys[4][3];
};

struct Alphabet
{
    const char *oneCapital;  // the name of typing one capital letter, then small ones
    KeyPage smallLetters;
    KeyPage capitals;
};

const Alphabet alphabets[] = {
    {"Abc",
     {"abc", {{".,?!1", "abc2",  "def3"},
              {"ghi4",  "jkl5",  "mno6"},
              {"pqrs7", "tuv8",  "wxyz9"},
              {"*",     "-'@0",  "#"}}},
     {"ABC", {{".,?!1", "ABC2",  "DEF3"},
              {"GHI4",  "JKL5",  "MNO6"},
              {"PQRS7", "TUV8",  "WXYZ9"},
              {"*",     "-'@0",  "#"}}}},
    {"Αβγ",
     {"αβγ", {{".,;!1", "αβγά2", "δεζέ3"},
              {"ηθιήί4", "κλμ5", "νξοό6"},
              {"πρσς7", "τυφύ8", "χψωώ9"},
              {"*",     "-'@0",  "#"}}},
     {"ΑΒΓ", {{".,;!1", "ΑΒΓΆ2", "ΔΕΖΈ3"},
              {"ΗΘΙΉΊ4", "ΚΛΜ5", "ΝΞΟΌ6"},
              {"ΠΡΣ7",  "ΤΥΦΎ8", "ΧΨΩΏ9"},
              {"*",     "-'@0",  "#"}}}},
    {"Абв",
     {"абв", {{".,?!1", "абвг2", "деёжз3"},
              {"ийкл4", "мноп5", "рсту6"},
              {"фхцч7", "шщъы8", "ьэюя9"},
              {"*",     "-'@0",  "#"}}},
     {"АБВ", {{".,?!1", "АБВГ2", "ДЕЁЖЗ"},
              {"ИЙКЛ4", "МНОП5", "РСТУ6"},
              {"ФХЦЧ7", "ШЩЪЫ",  "ЬЭЮЯ9"},
              {"*",     "-'@0",  "#"}}}},
};
const int AlphabetCount = int(sizeof alphabets / sizeof alphabets[0]);

const KeyPage digitPage =
     {"123", {{"1", "2", "3"},
              {"4", "5", "6"},
              {"7", "8", "9"},
              {"*", "0", "#"}}};

const KeyPage symbolPage =
     {"?!&", {{".,?!",    "'\"-_",  "@/:;"},
              {"+*=%",    "()[]",   "<>{}"},
              {"&#\\|",   "$€£¥",   "°§²³"},
              {"*",       "~^`¿¡",  "#"}}};

#endif
