#include "CatalogueCommand.h"

#include "Base64Text.h"
#include "CatalogueCheck.h"
#include "InstallationPaths.h"
#include "ITavFuncTypeMgr.h"
#include "NavigationReport.h"
#include "PluginView.h"
#include "Presentation.h"
#include "TavCommonUtils.h"
#include "TavCountedText.h"
#include "TavNanolog.h"
#include "TavObjectMgr.h"
#include "WholeFile.h"

namespace
{
bool isJson(const QByteArray &text)
{
    return TavJsonText(text).error().isEmpty();
}
}

ExitCode showCatalogue(const CatalogueShowOptions &options)
{
    TavCommonUtils::setContent(InstallationPaths::catalogue(), WholeFile::read(options.file));
    const TavPluginHost host = loadPlugin(options.plugin);
    TavNanolog::setLevel(0); // what the plugin would log, the check says better
    tavObject<ITavFuncTypeMgr>()->loadConfig();
    const QVector<NavigationNode> tree = navigationTree();
    if (tree.isEmpty()) {
        throw ToolError(ExitCode::Usage,
                        options.file
                            + ": the plugin builds no navigation from it; \"tavctl catalogue check\" says why");
    }
    if (options.json) {
        printJson({{"navigation", navigationJson(tree)}});
    } else {
        printNavigation(tree);
    }
    return ExitCode::Success;
}

ExitCode checkCatalogueFiles(const CatalogueCheckOptions &options)
{
    FindingReport report(options.findings);
    FileFixing fixing(options.fixing, options.files);
    for (const QString &file : options.files) {
        fixing.check(file, checkCatalogueOrText, report);
    }
    if (fixing.files().count() > 0) {
        report.print(countedText(fixing.files().count(), "file") + " checked" + fixing.summary());
    }
    return fixing.files().exitCode(report);
}

ExitCode encodeCatalogue(const CatalogueEncodeOptions &options)
{
    const QByteArray content = WholeFile::read(options.file);
    if (Base64Text::firstWrong(content) < 0 && isJson(Base64Text::decoded(content))) {
        throw ToolError(ExitCode::Usage, options.file + ": this is the Base64 text of JSON already");
    }
    WholeFile::write(options.output, Base64Text::encoded(content, options.wrap));
    return ExitCode::Success;
}

ExitCode decodeCatalogue(const CatalogueDecodeOptions &options)
{
    const QByteArray content = WholeFile::read(options.file);
    const int wrong = Base64Text::firstWrong(content);
    const int spare = wrong < 0 ? Base64Text::spareBits(content) : -1;
    if (!options.lenient && (wrong >= 0 || spare >= 0)) {
        const TextPlace place = placeAt(content, qMax(wrong, spare));
        throw ToolError(
            ExitCode::Usage,
            QString("%1:%2:%3: not Base64%4; %5")
                .arg(options.file)
                .arg(place.line)
                .arg(place.column)
                .arg(QLatin1String(spare < 0 ? "" : ": bits of the last character stand for nothing"),
                     QLatin1String(isJson(content) ? "this is JSON already"
                                                   : "--lenient leaves out what is none, as the plugin does")));
    }
    WholeFile::write(options.output, Base64Text::decoded(content));
    return ExitCode::Success;
}
