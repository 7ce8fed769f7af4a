// A host of its own for a benchmark, with the module installed as the driver of one printer.
#pragma once

#include <windows.h>

#include <string>

class BenchHost {
public:
    // `model_data` are the bytes of the driver's model data file. The driver is "Model 1", the
    // printer "Dock 3". Ends the program if the installation fails.
    explicit BenchHost(const std::string& model_data);
    ~BenchHost();
    BenchHost(const BenchHost&) = delete;
    BenchHost& operator=(const BenchHost&) = delete;

    const std::string& Root() const { return root_; }

private:
    std::string root_;
};

// The same with the benchmark in place of the module: its caches are as after attach, and the model
// data file is beside it.
class AttachedModule {
public:
    explicit AttachedModule(const std::string& model_data);
    ~AttachedModule();

    const std::string& Root() const { return host_.Root(); }

    // Forgets the model records and, with `file`, the model data file too.
    void Refresh(bool file);

private:
    BenchHost host_;
    HMODULE module_;
};
