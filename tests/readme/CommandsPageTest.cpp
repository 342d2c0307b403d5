// The table of keys in the manual's page "Commands and keys" is the one that the code has.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "kxVsGrid/Command.h"

namespace kxVsGrid {
namespace {

std::string inAnOpenEditor(Command command, const CommandKey* key) {
    if (command == Command::Undo || command == Command::Redo) return "the text's own first";
    if (!key) return {};
    return key->where == CommandKey::Where::ClosedCell ? "the text's own" : "commits first";
}

std::string lineOf(Command command) {
    std::string keys;
    const CommandKey* last = nullptr;
    for (const CommandKey& key : defaultKeys()) {
        if (key.command != command) continue;
        keys += (keys.empty() ? "" : ", ") + keyText(key);
        last = &key;
    }
    const auto cell = [](const std::string& text) {
        return text.empty() ? std::string(" |") : " " + text + " |";
    };
    const std::string name = std::string(captionOf(command)) + " `" + std::string(nameOf(command)) + "`";
    return "|" + cell(keys) + cell(name) + cell(inAnOpenEditor(command, last)) + "\n";
}

TEST(CommandsPage, ShowsTheKeysAsTheCodeHasThem) {
    std::ifstream file(KX_COMMANDS_PAGE);
    ASSERT_TRUE(file) << KX_COMMANDS_PAGE;
    std::stringstream page;
    page << file.rdbuf();
    std::string table = "| Key | Command | In an open editor |\n|---|---|---|\n";
    for (const Command command : allCommands()) table += lineOf(command);
    EXPECT_NE(page.str().find("\n\n" + table + "\n"), std::string::npos) << "the code has:\n" << table;
}
}  // namespace
}  // namespace kxVsGrid
