#pragma once

#include <QString>

#include <vector>

/// How much a finding weighs; the graver, the greater.
enum class Severity {
    Note, ///< worth knowing
    Warning, ///< the plugin gets by, but not as it is written
    Error, ///< the client shows something wrong, or nothing
};

/// What a finding is about. The numbers are what pipelines know it by: none is ever given to something else.
enum class FindingCode {
    EmptyFile = 101, // 1xx: the text of a file, and its JSON
    NotJson,
    Utf16,
    NotBase64,
    StrayInBase64,
    EncodedTwice,
    JsonWhereBase64Belongs,
    Base64WhereJsonBelongs,
    PemArmour,
    WrongType = 110,
    UnknownKey,
    MistypedKey,
    MissingKey,
    DoubledKey,
    BlankText,
    TextAmongBlanks,
    HiddenCharacter,
    ByteOrderMark,
    LenientText,

    UnknownEntryType = 201, // 2xx: the catalogue
    QualifiedEntryType,
    EntryTypeNone,
    EmptyCatalogue,
    NestedBesidePages,
    ParentNotRead,
    NestedInItself,
    FunctionTwice,
    PageTwice,
    ParentMissing,
    IconWithoutPicture,
    IconNotAName,
    NoVisiblePage,
    ParentInCircle,
    PageWithoutController,

    IdTwice = 301, // 3xx: the list of check items
    NoCheckItem,
    ButtonTextNotRead,
    NoButtonText,

    NoScriptNamed = 401, // 4xx: the scripts
    NoLeadingSlash,
    ScriptMissing,
    ScriptNotAFile,
    ScriptNotExecutable,
    ScriptOutside,
    ScriptEmpty,
    ScriptLineEnd,
    NoInterpreter,
    SlashAtEnd,
    ScriptWithDirectory,
    NoScriptDirectory,

    PictureKeyTwice = 501, // 5xx: the pictures
    PictureLeftToChance,
    PictureUndecodable,
    PictureNotAFile,
    PictureDirectoryInside,
    PictureOutside,
    NoPictureDirectory,
    PictureOfOtherSuffix,
    PictureHidden,
    PictureLinkDangling,
    EmptyPictureDirectory,
    BlankInPictureName,
    PictureOfOtherFormat,
    PictureTooLarge,

    NoPluginFile = 601, // 6xx: the plugin, and what an installation consists of
    PluginNotAFile,
    PluginNotALibrary,
    PluginCutOff,
    PluginForOtherMachine,
    PluginOfOtherWordSize,
    NotAPlugin,
    OtherPlugin,
    PluginOfOtherQt,
    PluginLacksLibrary,
    PluginLacksSymbol,
    PluginNotLoadable,
    PluginWithoutInterface,
    PluginWithOtherManagers,
    PluginCrashes,
    PluginHangs,
    PluginNotTried,
    PluginOfOtherName,
    NoConfigurationFile = 620,

    NotReadable = 701, // 7xx: permissions
    WritableByOthers,
    OwnedByStranger,
    NoProcessFiles,

    NoScenario = 801, // 8xx: the scenarios
    ScenarioLine,
    ScenarioLineCut,
    ScenarioKey,
    NoSuchCall,
    ScenarioArguments,
    ScenarioTime,
    ScenarioThread,
    ScenarioReturns,
    ScenarioIndeterminate,
};

/// @brief What all findings with one code have in common. docs/findings.md is made of it.
struct FindingKind {
    FindingCode code;
    Severity severity;
    QString title;
    QString explanation;
    QString broken; ///< an example
    QString mended; ///< the same without the mistake

    QString name() const; ///< such as "TAV101"

    /// Its section of docs/findings.md.
    QString page() const;
};

/// Of every code, in their order.
const std::vector<FindingKind> &findingKinds();

const FindingKind &kindOf(FindingCode code);

/// The one with this name, in upper or lower case; null when there is none.
const FindingKind *kindNamed(const QString &name);

/// "error", "warning" or "note".
QString nameOf(Severity severity);
