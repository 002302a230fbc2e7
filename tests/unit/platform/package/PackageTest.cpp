#include "tests/unit/platform/package/PackageTest.hpp"

#include "platform/package/StreamHelper.hpp"
#include "tests/support/NativeText.hpp"

#include <fstream>
#include <sstream>

namespace docparser_tests {

std::string readWhole(opc::InputStream& stream) {
    std::ostringstream content;
    EXPECT_TRUE(opc::StreamHelper::copyStreamToStream(stream, content));
    return std::move(content).str();
}

OpenPackage::OpenPackage(const std::u16string& path)
    : selector(storage::microservicestoragesystem::GetStorageSystemReference()),
      physical(path, selector, true),
      package(physical),
      manager(package, selector) {
    package.open(opc::OpenMode::ReadOnly);
}

std::vector<opc::qorservices::FileSystemEntry> OpenPackage::leaves() const {
    return manager.getAllLeafs().elements();
}

std::vector<std::u16string> OpenPackage::leafNames() const {
    std::vector<std::u16string> names;
    for (const opc::qorservices::FileSystemEntry& entry : manager.getAllLeafs())
        names.push_back(entry.getName());
    return names;
}

std::string OpenPackage::read(const opc::qorservices::FileSystemEntry& entry) {
    const auto source = manager.getFileContentSource(entry, opc::TransformMode::Decoded);
    return readWhole(*source->openInputStream());
}

std::vector<NamedText> OpenPackage::contents() {
    std::vector<NamedText> result;
    for (const opc::qorservices::FileSystemEntry& entry : manager.getAllLeafs())
        result.emplace_back(entry.getName(), read(entry));
    return result;
}

std::u16string PackageTest::write(std::string_view name, std::string_view bytes) const {
    // Some file systems write a file to disk at once if its content is replaced.
    std::filesystem::remove(folder / pathOf(name));
    std::ofstream file(folder / pathOf(name), std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    EXPECT_TRUE(file) << name;
    return path(name);
}

std::u16string PackageTest::path(std::string_view name) const {
    return (folder / pathOf(name)).u16string();
}

std::string sampleText(std::size_t length) {
    std::string text;
    for (std::size_t i = 0; text.size() < length; ++i)
        text += "{\"item\": " + std::to_string(i * 7919 % 10007) + "}\n";
    text.resize(length);
    return text;
}

} // namespace docparser_tests
