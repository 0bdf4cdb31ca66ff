#pragma once

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <string>
#include <vector>

/// What a painter was told to draw.
struct Recording {
    struct Text {
        std::string text;
        QPointF place;
        QColor color;
    };
    std::vector<QLineF> lines;
    std::vector<QRectF> ellipses;
    std::vector<QBrush> brushes; // of the ellipses
    std::vector<Text> texts;

    std::vector<std::string> words() const {
        std::vector<std::string> all;
        for (const Text& text : texts) {
            all.push_back(text.text);
        }
        return all;
    }
};

/// A device on which a painter draws nothing but a recording.
class PaintRecorder : public QPaintDevice {
public:
    explicit PaintRecorder(Recording& recording) : _engine(recording) {}

    QPaintEngine* paintEngine() const override { return &_engine; }

protected:
    int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 96;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(QPaintDevice::devicePixelRatioFScale());
        case PdmDepth:
            return 32;
        default:
            return 1000;
        }
    }

private:
    class Engine : public QPaintEngine {
    public:
        explicit Engine(Recording& recording) : QPaintEngine(AllFeatures), _recording(recording) {}
        bool begin(QPaintDevice* /*device*/) override { return true; }
        bool end() override { return true; }
        Type type() const override { return User; }
        void updateState(const QPaintEngineState& now) override {
            if ((now.state() & DirtyPen) != 0) {
                _pen = now.pen();
            }
            if ((now.state() & DirtyBrush) != 0) {
                _brush = now.brush();
            }
        }
        void drawLines(const QLineF* lines, int count) override {
            _recording.lines.insert(_recording.lines.end(), lines, lines + count);
        }
        void drawEllipse(const QRectF& rect) override {
            _recording.ellipses.push_back(rect);
            _recording.brushes.push_back(_brush);
        }
        void drawTextItem(const QPointF& place, const QTextItem& item) override {
            _recording.texts.push_back({item.text().toStdString(), place, _pen.color()});
        }
        void drawPixmap(const QRectF& /*r*/, const QPixmap& /*pm*/, const QRectF& /*sr*/) override {}

    private:
        Recording& _recording;
        QPen _pen;
        QBrush _brush;
    };
    mutable Engine _engine;
};
