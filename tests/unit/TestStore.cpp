#include "TestStore.h"

#include <ostream>

namespace {

std::string Narrow(const std::wstring& ascii) {
    std::string narrow;
    for (const wchar_t c : ascii) {
        narrow += static_cast<char>(c);
    }
    return narrow;
}

/// The place as "subkey name", with the whole path when it is not one of the product's.
std::string Place(const FakeRegistry::Operation& operation) {
    const std::wstring product = kProductKey;
    std::wstring path = operation.path;
    if (path.starts_with(product)) {
        path.erase(0, product.size() + 1);
    }
    return (path.empty() ? "" : Narrow(path) + " ") + Narrow(operation.name);
}

std::string Content(const RegistryValue& value) {
    if (value.type == kRegistryDword && value.bytes.size() == sizeof(std::int32_t)) {
        std::array<char, sizeof(std::int32_t)> bytes{};
        value.bytes.copy(bytes.data(), bytes.size());
        return std::to_string(std::bit_cast<std::int32_t>(bytes));
    }
    if (value.type == kRegistryString && value.bytes.ends_with('\0')) {
        return '"' + value.bytes.substr(0, value.bytes.find('\0')) + '"';
    }
    return "bytes of type " + std::to_string(value.type);
}

} // namespace

void PrintTo(const ButtonSlot& slot, std::ostream* stream) {
    *stream << testing::PrintToString(slot.Name) << ' ' << testing::PrintToString(slot.Exec) << ' '
            << slot.NumAP;
    for (int k = 1; k <= kMaxPrograms; ++k) {
        *stream << " (" << testing::PrintToString(slot.Program(k).AP) << ", "
                << testing::PrintToString(slot.Program(k).Param) << ", "
                << testing::PrintToString(slot.Program(k).Title) << ')';
    }
}

void PrintTo(const Pattern& pattern, std::ostream* stream) {
    *stream << testing::PrintToString(pattern.UserName);
    for (int button = 1; button <= kMaxButtons; ++button) {
        *stream << "\n    " << button << ": ";
        PrintTo(pattern.Btn(button), stream);
    }
}

std::wstring TestStore::Path(const std::wstring& subkey) {
    return subkey.empty() ? kProductKey : std::wstring(kProductKey) + L"\\" + subkey;
}

void TestStore::PutMachine(const std::wstring& subkey, const std::wstring& name, std::int32_t number) {
    registry.PutDword(RegistryHive::LocalMachine, Path(subkey), name, number);
}

void TestStore::PutMachine(const std::wstring& subkey, const std::wstring& name, const char* text) {
    registry.PutString(RegistryHive::LocalMachine, Path(subkey), name, text);
}

void TestStore::PutUser(const std::wstring& subkey, const std::wstring& name, std::int32_t number) {
    registry.PutDword(RegistryHive::CurrentUser, Path(subkey), name, number);
}

void TestStore::PutUser(const std::wstring& subkey, const std::wstring& name, const char* text) {
    registry.PutString(RegistryHive::CurrentUser, Path(subkey), name, text);
}

void TestStore::PutLine(const std::wstring& section, const std::wstring& key, const char* text) {
    files.PutLine(section, key, kOwnFile, text);
}

std::optional<std::string> TestStore::UserString(const std::wstring& subkey, const std::wstring& name) const {
    return registry.StoredString(RegistryHive::CurrentUser, Path(subkey), name);
}

std::optional<std::int32_t> TestStore::UserDword(const std::wstring& subkey, const std::wstring& name) const {
    return registry.StoredDword(RegistryHive::CurrentUser, Path(subkey), name);
}

std::optional<std::string> TestStore::Line(const std::wstring& section, const std::wstring& key) const {
    return files.Line(section, key, kOwnFile);
}

std::vector<std::string> TestStore::Written() const {
    std::vector<std::string> lines;
    for (const FakeRegistry::Operation& write : registry.Writes()) {
        const std::string hive = write.hive == RegistryHive::LocalMachine ? "HKLM " : "";
        if (write.access == FakeRegistry::Access::Delete) {
            lines.push_back(hive + "delete " + Place(write));
            continue;
        }
        if (write.access == FakeRegistry::Access::DeleteValue) {
            lines.push_back(hive + "delete value " + Place(write));
            continue;
        }
        lines.push_back(hive + Place(write) + " = " + Content(write.value));
    }
    for (const FakeProfileFiles::Operation& write : files.Writes()) {
        if (write.access == FakeProfileFiles::Access::Delete) {
            lines.push_back("delete [" + Narrow(write.section) + "]");
            continue;
        }
        if (write.access == FakeProfileFiles::Access::DeleteEntry) {
            lines.push_back("delete [" + Narrow(write.section) + "] " + Narrow(write.key));
            continue;
        }
        lines.push_back("[" + Narrow(write.section) + "] " + Narrow(write.key) + " = \"" +
                        ansiText.Encode(write.value) + '"');
    }
    return lines;
}

std::vector<std::string> TestStore::Asked() const {
    std::vector<std::string> lines;
    for (const FakeRegistry::Operation& operation : registry.Operations()) {
        if (operation.access == FakeRegistry::Access::Read) {
            lines.push_back((operation.hive == RegistryHive::LocalMachine ? "HKLM " : "HKCU ") +
                            Place(operation));
        }
    }
    for (const FakeProfileFiles::Operation& operation : files.Operations()) {
        if (operation.access == FakeProfileFiles::Access::Read) {
            lines.push_back("[" + Narrow(operation.section) + "] " + Narrow(operation.key));
        }
    }
    return lines;
}

void TestStore::ForgetOperations() {
    registry.ForgetOperations();
    files.ForgetOperations();
}
