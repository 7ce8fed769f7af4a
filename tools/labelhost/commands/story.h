// A story told by the commands that a person would type: each is shown and run, and its output is
// shown.
#pragma once

#include <string>
#include <vector>

class Story {
public:
    // Starts the next chapter. `text` says what it does.
    static void Chapter(const std::string& title, const std::string& text);

    // Shows and runs labelhost with these words, as a process of its own in the current folder, and
    // shows its output: all lines, or only those that contain one of `parts`. Throws Fault if it
    // fails.
    static void Run(const std::vector<std::string>& words,
                    const std::vector<std::string>& parts = {});

    // Shows the first lines of a text file.
    static void ShowFile(const std::string& path, int lines);

    // Shows one line about something that happened elsewhere.
    static void Say(const std::string& line);
};
