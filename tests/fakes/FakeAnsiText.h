#pragma once

#include "platform/AnsiText.h"

#include <cstdint>
#include <stdexcept>

#ifdef _WIN32
#include <windows.h>
#else
#include <iconv.h>
#endif

/// One of the two code pages that matter, 1252 (Western) or 932 (Japanese), whatever the system's own is.
class FakeAnsiText final : public AnsiText {
public:
    static constexpr unsigned kWestern = 1252;
    static constexpr unsigned kJapanese = 932;

    /// What a lead byte without its second byte decodes to. Systems differ: some drop it (0).
    wchar_t strayLeadByte = L'\u30FB';

    FakeAnsiText(const FakeAnsiText&) = delete;
    FakeAnsiText& operator=(const FakeAnsiText&) = delete;
    explicit FakeAnsiText(unsigned codePage) : codePage_(codePage) {
        if (codePage != kWestern && codePage != kJapanese) {
            throw std::invalid_argument("code page");
        }
    }

    [[nodiscard]] std::string Encode(std::wstring_view text) const override {
        std::string bytes;
        for (const wchar_t c : text) {
            // Both code pages begin with ASCII, and nearly all text is ASCII.
            if (c < kFirstBeyondAscii) {
                bytes += static_cast<char>(c);
            } else {
                bytes += EncodeOne(c);
            }
        }
        return bytes;
    }

    [[nodiscard]] std::wstring Decode(std::string_view bytes) const override {
        std::wstring text;
        std::size_t pos = 0;
        while (pos < bytes.size()) {
            const std::size_t length = IsLeadByte(bytes[pos]) ? 2 : 1;
            if (static_cast<unsigned char>(bytes[pos]) < kFirstBeyondAscii) {
                text += static_cast<wchar_t>(bytes[pos]);
            } else if (pos + length <= bytes.size()) {
                text += DecodeOne(bytes.substr(pos, length));
            } else if (strayLeadByte != 0) {
                text += strayLeadByte;
            }
            pos += length;
        }
        return text;
    }

    [[nodiscard]] unsigned CodePage() const { return codePage_; }

private:
    static constexpr unsigned char kFirstBeyondAscii = 0x80;

    [[nodiscard]] bool IsLeadByte(char byte) const {
        const auto value = static_cast<unsigned char>(byte);
        return codePage_ == kJapanese &&
               ((value >= 0x81 && value <= 0x9F) || (value >= 0xE0 && value <= 0xFC));
    }

#ifdef _WIN32
    [[nodiscard]] std::string EncodeOne(wchar_t c) const {
        char bytes[2] = {};
        const int length =
            WideCharToMultiByte(codePage_, WC_NO_BEST_FIT_CHARS, &c, 1, bytes, 2, "?", nullptr);
        return {bytes, static_cast<std::size_t>(length)};
    }
    [[nodiscard]] std::wstring DecodeOne(std::string_view bytes) const {
        wchar_t text[2] = {};
        const int length =
            MultiByteToWideChar(codePage_, 0, bytes.data(), static_cast<int>(bytes.size()), text, 2);
        return {text, static_cast<std::size_t>(length)};
    }
#else
    class Converter {
    public:
        Converter(const char* to, const char* from) : handle_(iconv_open(to, from)) {
            if (handle_ == iconv_t(-1)) {
                throw std::runtime_error("iconv lacks a code page");
            }
        }
        Converter(const Converter&) = delete;
        Converter& operator=(const Converter&) = delete;
        ~Converter() { iconv_close(handle_); }

        /// Bytes written; 0 when there is no such character.
        std::size_t Convert(char* from, std::size_t fromSize, char* to, std::size_t toSize) const {
            std::size_t left = toSize;
            iconv(handle_, nullptr, nullptr, nullptr, nullptr);
            const std::size_t status = iconv(handle_, &from, &fromSize, &to, &left);
            return status == 0 ? toSize - left : 0;
        }

    private:
        iconv_t handle_;
    };

    [[nodiscard]] std::string EncodeOne(wchar_t c) const {
        if (const char byte = ByteInGap(c); byte != 0) {
            return {byte};
        }
        char bytes[2] = {};
        const std::size_t length =
            toBytes_.Convert(static_cast<char*>(static_cast<void*>(&c)), sizeof c, bytes, sizeof bytes);
        return length == 0 ? "?" : std::string(bytes, length);
    }
    [[nodiscard]] std::wstring DecodeOne(std::string_view bytes) const {
        if (const wchar_t c = CharacterInGap(static_cast<unsigned char>(bytes[0]));
            c != 0 && bytes.size() == 1) {
            return {c};
        }
        std::string source(bytes);
        wchar_t text[2] = {};
        const std::size_t length = toText_.Convert(source.data(), source.size(),
                                                   static_cast<char*>(static_cast<void*>(text)), sizeof text);
        return length == 0 ? std::wstring(1, L'\u30FB') : std::wstring(text, length / sizeof(wchar_t));
    }

    /// Windows keeps the bytes that stand for nothing as control or private characters.
    [[nodiscard]] wchar_t CharacterInGap(unsigned char byte) const {
        constexpr std::string_view kWesternGaps = "\x81\x8D\x8F\x90\x9D";
        constexpr std::string_view kJapaneseGaps = "\x80\xA0";
        if (codePage_ == kJapanese && byte >= 0xFD) {
            return static_cast<wchar_t>(0xF8F1 + byte - 0xFD);
        }
        const std::string_view gaps = codePage_ == kJapanese ? kJapaneseGaps : kWesternGaps;
        return gaps.find(static_cast<char>(byte)) == std::string_view::npos ? L'\0'
                                                                            : static_cast<wchar_t>(byte);
    }
    [[nodiscard]] char ByteInGap(wchar_t c) const {
        // Asked for nearly every character, and nearly never with an answer.
        if (c > 0xA0 && (c < 0xF8F1 || c > 0xF8F3)) {
            return '\0';
        }
        for (unsigned byte = 0x80; byte <= 0xFF; ++byte) {
            if (CharacterInGap(static_cast<unsigned char>(byte)) == c) {
                return static_cast<char>(byte);
            }
        }
        return '\0';
    }

    [[nodiscard]] const char* Name() const {
        return codePage_ == kJapanese ? "CP932" : "CP1252";
    }
#endif

    unsigned codePage_;
#ifndef _WIN32
    Converter toBytes_{Name(), "WCHAR_T"};
    Converter toText_{"WCHAR_T", Name()};
#endif
};
