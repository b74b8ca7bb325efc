#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace velmo
{

struct FixedFileInfo;
class VersionInfoBlock;

/// Thrown by CFileVersionInfo when the first translation of a version resource has a zero among its
/// first four bytes (as of "language neutral", or of no code page), so that no block of texts can be
/// looked up by it.
class TranslationCodeError : public std::runtime_error
{
  public:
    TranslationCodeError();
};

/**
    The version resource of one executable file as text: its fixed numbers and its named texts.

    Assign the file's path to FullPathName, then read the other properties; call Refresh to read the
    file anew. A new instance holds empty texts. A refresh sets what it finds and keeps the rest, so
    that for a text that the file does not have, an instance used for several files still holds the
    text of an earlier one. Texts pass the ANSI code page: a character that it does not have reads as
    the nearest one that it has, or "?".

    Version texts have three groups, as the vendor's version numbers do. The third is the revision
    with at least four digits, or, when the file has a build number (1 to 32767), the build and the
    revision with at least two digits each: 1.2.0.5 reads "1.02.0005", 8.0.1.23 reads "8.00.0123".

    A plain value; one thread at a time.
 */
class CFileVersionInfo
{
  public:
    /// Takes the absolute form of @a path and refreshes. A path that has no absolute form, such as an
    /// empty one, changes nothing. Throws TranslationCodeError as Refresh does.
    void FullPathName(std::string_view path);

    /// The file's absolute path.
    [[nodiscard]] const std::string& FullPathName() const { return m_fullPathName; }

    /// True when the file exists and has a version resource; when false, the last refresh kept all
    /// other properties.
    [[nodiscard]] bool Available() const { return m_available; }

    /// Words for the file's flags, one blank between them: "Debug PreRel".
    [[nodiscard]] const std::string& FileFlags() const { return m_fileFlags; }

    /// The system that the file was made for: "NT-Win32"; "Unknown" for a system without a text.
    [[nodiscard]] const std::string& FileOS() const { return m_fileOS; }

    /// "Application", "DLL", "Driver", "Font", "VxD", "Lib" or "Unknown".
    [[nodiscard]] const std::string& FileType() const { return m_fileType; }

    /// The kind of driver or font: "Printer drv", "Raster Font". Kept for all other files.
    [[nodiscard]] const std::string& FileSubType() const { return m_fileSubType; }

    /// File version from the fixed numbers, in three groups.
    [[nodiscard]] const std::string& VerFile() const { return m_verFile; }

    /// Product version from the fixed numbers, in three groups.
    [[nodiscard]] const std::string& VerProduct() const { return m_verProduct; }

    /// Version of the fixed part's own layout: "1.0".
    [[nodiscard]] const std::string& VerStructure() const { return m_verStructure; }

    [[nodiscard]] const std::string& CompanyName() const { return m_companyName; }
    [[nodiscard]] const std::string& FileDescription() const { return m_fileDescription; }

    /// The file version as the maker wrote it; it may differ from VerFile.
    [[nodiscard]] const std::string& FileVersion() const { return m_fileVersion; }

    [[nodiscard]] const std::string& InternalName() const { return m_internalName; }

    /// The system's name of the first translation's language: "German (Germany)".
    [[nodiscard]] const std::string& Language() const { return m_language; }

    [[nodiscard]] const std::string& LegalCopyright() const { return m_legalCopyright; }
    [[nodiscard]] const std::string& LegalTrademarks() const { return m_legalTrademarks; }
    [[nodiscard]] const std::string& OriginalFilename() const { return m_originalFilename; }
    [[nodiscard]] const std::string& ProductName() const { return m_productName; }
    [[nodiscard]] const std::string& ProductVersion() const { return m_productVersion; }

    /// Reads the file again. Throws TranslationCodeError; the fixed properties are set by then.
    void Refresh();

  private:
    void SetFixed(const FixedFileInfo& info);
    void SetTexts(const VersionInfoBlock& block);

    std::string m_fullPathName;
    bool m_available = false;
    std::string m_fileFlags;
    std::string m_fileOS;
    std::string m_fileType;
    std::string m_fileSubType;
    std::string m_verFile;
    std::string m_verProduct;
    std::string m_verStructure;
    std::string m_companyName;
    std::string m_fileDescription;
    std::string m_fileVersion;
    std::string m_internalName;
    std::string m_language;
    std::string m_legalCopyright;
    std::string m_legalTrademarks;
    std::string m_originalFilename;
    std::string m_productName;
    std::string m_productVersion;
};

} // namespace velmo
