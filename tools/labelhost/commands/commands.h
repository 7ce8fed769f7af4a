// The commands of labelhost. Each gets the words after its name, prints what it found, and throws
// Fault (exit status 1) or UsageFault (2) if it cannot do what it was asked.
#pragma once

#include <string>
#include <vector>

using Words = std::vector<std::string>;

void InstallCommand(const Words& words);
void RemoveCommand(const Words& words);
void ConnectCommand(const Words& words);
void DisconnectCommand(const Words& words);
void ListCommand(const Words& words);
void ModelsCommand(const Words& words);
void CapabilitiesCommand(const Words& words);
void DitherCommand(const Words& words);
void DocumentCommand(const Words& words);
void ConvertCommand(const Words& words);
void UpgradeCommand(const Words& words);
void JobsCommand(const Words& words);
void ActionsCommand(const Words& words);
void ActionCommand(const Words& words);
void EventCommand(const Words& words);
void FontsCommand(const Words& words);
void SettingsCommand(const Words& words);
void QueryCommand(const Words& words);
void SheetCommand(const Words& words);
void RegistryCommand(const Words& words);
void PrinterEmulatorCommand(const Words& words);
void DemoCommand(const Words& words);
