// The picture of a bench run, panels one above the other: shares of the limits, ratios, rates over n
// and, for cases without a limit, times over n.
#include "tools/bench_report.h"
#include "tools/failure.h"
#include "tools/gnuplot.h"

#include <algorithm>
#include <map>
#include <sstream>

namespace vor::tool {

using bench::Limit;
using bench::Measurement;

namespace {

constexpr int kPanelHeight = 420;
constexpr int kLeastWidth = 900, kMostWidth = 8000;
constexpr int kWidthOfCase = 18; // room for one label that is turned upright

struct Point {
    double x, y;
    std::string label;
};

struct Series {
    std::string title;
    std::vector<Point> points;
    size_t colour;
    int dashes; // 1 solid, more for the curves of rivals, in the colour of what they are compared with
};

using Panel = std::vector<Series>;

// "ddot n=4000 incx=2" is the point 4000 of the curve "ddot incx=2".
bool split_size(const std::string& name, std::string* curve, double* n) {
    std::istringstream words(name);
    bool found = false;
    curve->clear();
    for (std::string word; words >> word;) {
        if (!found && word.rfind("n=", 0) == 0) {
            char* end;
            *n = std::strtod(word.c_str() + 2, &end);
            found = *end == '\0' && *n > 0;
            if (found) continue;
        }
        *curve += (curve->empty() ? "" : " ") + word;
    }
    return found;
}

Panel by_title(const std::map<std::string, std::vector<Point>>& series) {
    Panel panel;
    for (const auto& [title, points] : series)
        panel.push_back({title, points, panel.size() + 1, 1});
    return panel;
}

Panel shares(const std::vector<Measurement>& all) {
    std::map<std::string, std::vector<Point>> series;
    double x = 0;
    for (const Measurement& m : all)
        if (m.limit != Limit::none)
            series[bench::name_of(m.limit) + std::string(" limit")].push_back(
                {x++, m.share, m.name});
    return by_title(series);
}

Panel ratios(const std::vector<Measurement>& all) {
    std::map<std::string, std::vector<Point>> series;
    double x = 0;
    for (const Measurement& m : all) {
        for (const bench::Ratio& r : m.ratios) series[r.name].push_back({x, r.ratio, m.name});
        x += m.ratios.empty() ? 0 : 1;
    }
    return by_title(series);
}

// A curve for each name without its n, and one for each of its rivals.
template <class F>
Panel curves(const std::vector<Measurement>& all, bool limited, F value) {
    using Title = std::pair<std::string, std::string>; // of the case, of the rival
    std::map<Title, std::vector<Point>> series;
    std::map<std::string, int> dashes{{"", 1}};
    std::string curve;
    double n = 0;
    for (const Measurement& m : all) {
        if ((m.limit != Limit::none) != limited || !split_size(m.name, &curve, &n)) continue;
        series[{curve, ""}].push_back({n, value(m, m.seconds), ""});
        for (const bench::Ratio& r : m.ratios) {
            series[{curve, r.name}].push_back({n, value(m, r.seconds), ""});
            dashes.emplace(r.name, static_cast<int>(dashes.size()) + 1);
        }
    }
    Panel panel;
    size_t colour = 0;
    for (auto& [title, points] : series) {
        const auto& [name, rival] = title;
        if (rival.empty()) ++colour;
        if (points.size() < 2) continue;
        std::sort(points.begin(), points.end(),
                  [](const Point& a, const Point& b) { return a.x < b.x; });
        panel.push_back(
            {rival.empty() ? name : name + ": " + rival, points, colour, dashes.at(rival)});
    }
    return panel;
}

Panel rates(const std::vector<Measurement>& all) {
    return curves(all, true,
                  [](const Measurement& m, double seconds) { return m.work / seconds * 1e-9; });
}

Panel times(const std::vector<Measurement>& all) {
    return curves(all, false, [](const Measurement&, double seconds) { return seconds * 1e6; });
}

double last_x(const Panel& panel) {
    double last = 0;
    for (const Series& s : panel) last = std::max(last, s.points.back().x);
    return last;
}

class Script {
public:
    // Cases side by side, their names below, a line at 1.
    void cases(const Panel& panel, const std::string& ylabel, const std::string& scale,
               const std::string& style) {
        if (panel.empty()) return;
        begin(panel, ylabel);
        body_ << "set xtics rotate by 90 right font ',9'\nset grid ytics\n"
              << "set xrange [-0.7:" << last_x(panel) + 0.7 << "]\n"
              << scale << "\n"
              << "plot 1 with lines lc 'gray' notitle";
        for (size_t i = 0; i < panel.size(); ++i) {
            body_ << ", " << data(i) << " using 1:2:xtic(3) with " << style;
            end(panel, i);
        }
        body_ << "\n";
    }
    // Values over n, which has a logarithmic scale.
    void lines(const Panel& panel, const std::string& ylabel, const std::string& scale) {
        if (panel.empty()) return;
        begin(panel, ylabel);
        body_ << "set xtics norotate autofreq font ',10'\nset grid\nset logscale x\n"
              << "set xlabel 'n'\n"
              << scale << "\nplot ";
        for (size_t i = 0; i < panel.size(); ++i) {
            body_ << (i ? ", " : "") << data(i) << " using 1:2 with linespoints pt 7 ps 0.5"
                  << " dt " << panel[i].dashes;
            end(panel, i);
        }
        body_ << "\n";
    }
    int panels() const { return panels_; }
    std::string text() const {
        return data_.str() + "set multiplot layout " + std::to_string(panels_) + ",1\n" +
               body_.str() + "unset multiplot\n";
    }

private:
    void begin(const Panel& panel, const std::string& ylabel) {
        ++panels_;
        for (size_t i = 0; i < panel.size(); ++i) {
            data_ << data(i) << " << END\n";
            for (const Point& p : panel[i].points)
                data_ << p.x << ' ' << p.y << " \"" << p.label << "\"\n";
            data_ << "END\n";
        }
        body_ << "reset\nset border 3\nset tics nomirror\nset style fill solid 0.6\n"
              << "set boxwidth 0.7\nset key outside right top font ',9'\nset ylabel "
              << gnuplot_text(ylabel) << "\n";
    }
    std::string data(size_t i) const {
        return "$data_" + std::to_string(panels_) + "_" + std::to_string(i);
    }
    void end(const Panel& panel, size_t i) {
        body_ << " lc " << panel[i].colour << " title " << gnuplot_text(panel[i].title);
    }

    int panels_ = 0;
    std::ostringstream data_, body_;
};

} // namespace

void write_plot(const std::string& file, const std::vector<Measurement>& all) {
    Script script;
    script.cases(shares(all), "share of the limit", "set yrange [0:*]", "boxes");
    script.cases(ratios(all), "others' time / own time", "set logscale y", "points pt 7");
    script.lines(rates(all), "1e9 operations, bytes or products a second", "set yrange [0:*]");
    script.lines(times(all), "microseconds a call", "set logscale y");
    if (script.panels() == 0) throw Failure("--plot: these cases have no share, no ratio, no n");
    const int width =
        std::clamp(300 + kWidthOfCase * static_cast<int>(all.size()), kLeastWidth, kMostWidth);
    run_gnuplot(script.text(), file, width, kPanelHeight * script.panels());
}

} // namespace vor::tool
