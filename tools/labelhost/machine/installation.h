// The installation file of the product (zplui.inf): the printers, and the files that the driver of
// each needs.
#pragma once

#include <string>
#include <vector>

struct Model {
    std::string name;         // also the name of its driver
    std::string manufacturer; // the brand under which it is listed
    std::string oem;          // the OEM code of the brand's driver files
    std::string hardware_id;
};

// The files of one OEM code's driver, without folders.
struct DriverFiles {
    std::string driver, config, data, help;
    std::vector<std::string> dependent;
    std::string default_data_type;
    std::string monitor; // its library without the extension
};

class Installation {
public:
    // Reads DIR/zplui.inf. Throws Fault if it cannot be read.
    explicit Installation(const std::string& product_folder);

    const std::string& folder() const { return folder_; }
    const std::string& provider() const { return provider_; }

    // In the order of the file.
    const std::vector<Model>& models() const { return models_; }

    // Throws Fault if the product has no such model. The name matches without regard to case.
    const Model& FindModel(const std::string& name) const;

    // Throws Fault if the product has no driver files for that OEM code.
    DriverFiles FilesOf(const std::string& oem) const;

private:
    struct Section {
        std::string name;
        std::vector<std::pair<std::string, std::string>> entries;
    };

    void Parse(const std::string& text);
    const Section* Find(const std::string& name) const;

    std::string folder_;
    std::string provider_;
    std::vector<Section> sections_;
    std::vector<Model> models_;
};

// The product's folder if there is no --product: "product" beside the folder of this program.
std::string DefaultProductFolder();
