#include "DataArray.h"
#include "EditorControl.h"
#include "Humidity.h"
#include "Missing.h"
#include "RegistryXML.h"
#include "SkewT.h"
#include "SkewTAdapterQt.h"
#include "SkewTAdapterSVG.h"
#include "TarvoConfigSet.h"

#include <QApplication>

#include <fstream>
#include <iostream>

// Draws the Skew-T of a sounding as a picture, for a look at what the diagram makes of it:
//     draw-skewt CONFIG SOUNDING WIDTH HEIGHT OUTPUT.svg|OUTPUT.png

namespace {

std::vector<double> column(const DataArray& data, const char* name) {
    const double* values = data.getColumn(name);
    return {values, values + data.nRows()};
}

skewt::SkewT* makeDiagram(skewt::SkewTAdapter& adapter, const EditorControl& editor) {
    DataArray data;
    for (const char* name : {"QCPres", "QCTdry", "QCRH", "QCWspd", "QCWdir"}) {
        data.addSeries(editor.getSeries(name));
    }
    data.generate();
    const std::vector<double> pres = column(data, "QCPres");
    const std::vector<double> tdry = column(data, "QCTdry");
    const std::vector<double> dp = makeDp(data.nRows(), tdry.data(), column(data, "QCRH").data());
    return new skewt::SkewT(adapter, data.nRows(), tdry.data(), dp.data(), column(data, "QCWspd").data(),
                            column(data, "QCWdir").data(), pres.data(), 20, editor.description(),
                            editor.getLaunchPosString(), "Tarvo", -40.0, 40.0, 100.0, 1050.0);
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    if (argc != 6) {
        std::cerr << "draw-skewt CONFIG SOUNDING WIDTH HEIGHT OUTPUT\n";
        return 2;
    }
    RegistryXML store(argv[1], "");
    TarvoConfigSet config(&store);
    EditorControl editor(config, "");
    std::ifstream input(argv[2], std::ios::binary);
    editor.getSounding(argv[2], &input);
    if (!editor.isValid()) {
        std::cerr << editor.getSndfileErrorMsg() << '\n';
        return 1;
    }
    editor.qcProcess();
    const int width = std::atoi(argv[3]);
    const int height = std::atoi(argv[4]);
    const std::string output = argv[5];
    if (output.size() > 4 && output.substr(output.size() - 4) == ".svg") {
        std::ofstream stream(output);
        skewt::SkewTAdapterSVG adapter(stream, width, height, 4);
        std::unique_ptr<skewt::SkewT>(makeDiagram(adapter, editor))->brandNewPlot();
        return stream ? 0 : 1;
    }
    skewt::SkewTAdapterQt adapter(nullptr, width, height, 5, 500);
    const std::unique_ptr<skewt::SkewT> diagram(makeDiagram(adapter, editor));
    adapter.setSkewT(diagram.get());
    diagram->brandNewPlot();
    return adapter.savePlot(output, width, height, skewt::PlotFileType::Png) ? 0 : 1;
}
