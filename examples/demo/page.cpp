#include "page.hpp"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string_view>

namespace demo {
namespace {

std::string escaped(std::string_view text)
{
    std::string out;
    for (const char c : text) {
        switch (c) {
        case '&': out += "&amp;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '"': out += "&quot;"; break;
        default: out += c;
        }
    }
    return out;
}

std::string element(const std::string& tag, const std::string& content, const std::string& attributes = "")
{
    return "<" + tag + (attributes.empty() ? "" : " " + attributes) + ">" + content + "</" + tag + ">\n";
}

// What gnuplot takes literally.
std::string quoted(const std::string& text)
{
    std::string out = "'";
    for (const char c : text)
        out += c == '\'' ? "''" : std::string(1, c);
    return out + "'";
}

// Without the spaces that all lines begin with.
std::string dedented(const std::vector<std::string>& lines)
{
    std::size_t indent = std::string::npos;
    for (const std::string& line : lines)
        indent = std::min(indent, line.find_first_not_of(' '));
    std::string out;
    for (const std::string& line : lines)
        out += (line.empty() ? line : line.substr(indent)) + "\n";
    return out;
}

struct Source {
    std::string introduction, code;
};

// The folder of the sources is known when this is compiled. Should it have moved since, the page has no code.
Source readSource(const std::string& name)
{
    Source source;
    std::vector<std::string> marked;
    std::ifstream file(ARKPX_DEMO_SOURCES "/step_" + name + ".cpp");
    bool beginning = true, within = false;
    for (std::string line; std::getline(file, line);) {
        beginning = beginning && line.starts_with("// ");
        if (beginning)
            source.introduction += line.substr(3) + "\n";
        if (line.ends_with("// code]")) {
            within = false;
            if (!source.code.empty())
                source.code += '\n';
            source.code += dedented(marked);
            marked.clear();
        }
        if (within)
            marked.push_back(line);
        within = within || line.ends_with("// [code");
    }
    return source;
}

constexpr const char* style = R"(
body { font: 16px/1.5 sans-serif; max-width: 62rem; margin: 2rem auto; padding: 0 1rem; color: #222; background: #fff; }
h1, h2 { line-height: 1.2; } h2 { margin-top: 3rem; border-top: 1px solid #ccc; padding-top: 1rem; }
pre { background: #f5f5f2; padding: 0.8rem 1rem; overflow-x: auto; font-size: 0.85rem; line-height: 1.4; }
table { border-collapse: collapse; margin: 1rem 0; font-size: 0.9rem; display: block; overflow-x: auto; }
th, td { text-align: left; padding: 0.2rem 0.8rem 0.2rem 0; border-bottom: 1px solid #e4e4e4; vertical-align: top; }
.ok { color: #17692b; } .missed { color: #b00020; font-weight: bold; }
img { max-width: 100%; } figure { margin: 1rem 0; } audio { height: 2rem; vertical-align: middle; }
)";

} // namespace

void Page::section(const std::string& title, const std::string& name)
{
    const Source source = readSource(name);
    sections.push_back({title, source.introduction, source.code, "", "", ""});
}

void Page::paragraph(const std::string& words) { sections.back().body += element("p", escaped(words)); }

void Page::table(const std::vector<std::vector<std::string>>& rows)
{
    std::string content;
    for (const auto& row : rows) {
        std::string cells;
        for (const std::string& cell : row)
            cells += element(&row == &rows.front() ? "th" : "td", escaped(cell));
        content += element("tr", cells);
    }
    sections.back().body += element("table", content);
}

void Page::figure(bool met, const std::string& what, const std::string& measured, const std::string& wanted)
{
    sections.back().figures += element("tr", element("td", met ? "ok" : "missed", met ? "class=ok" : "class=missed") +
                                                 element("td", escaped(what)) + element("td", escaped(measured)) +
                                                 element("td", escaped(wanted)));
}

void Page::sound(const std::string& file)
{
    sections.back().sounds +=
        element("p", element("audio", "", "controls preload=none src=\"" + escaped(file) + "\"") + " " + escaped(file));
}

std::string Page::newPicture(const std::string& title)
{
    const std::string file = "picture-" + std::to_string(++pictureCount) + ".png";
    sections.back().body += element("figure", "<img src=\"" + file + "\" alt=\"" + escaped(title) + "\">");
    std::error_code notThere;
    std::filesystem::remove(folder / file, notThere); // one of an earlier run
    return "reset\nset output " + quoted(file) + "\nset title " + quoted(title) + " noenhanced\n";
}

void Page::picture(const Picture& picture)
{
    std::string lines, data;
    for (const Curve& curve : picture.curves) {
        lines += (lines.empty() ? "plot " : ", ") + ("'-' with " + curve.style + " title " + quoted(curve.name)) +
                 " noenhanced";
        for (std::size_t i = 0; i < curve.x.size(); i++)
            data += std::to_string(curve.x[i]) + " " + std::to_string(curve.y[i]) + "\n";
        data += "e\n";
    }
    plots += newPicture(picture.title) + "set xlabel " + quoted(picture.xLabel) + "\nset ylabel " +
             quoted(picture.yLabel) + "\nset grid\nset style fill solid 0.3\n" + picture.settings + "\n" + lines +
             "\n" + data;
}

void Page::picture(const Map& map)
{
    plots += newPicture(map.title) + "set xlabel " + quoted(map.xLabel) + "\nset ylabel " + quoted(map.yLabel) +
             "\nset autoscale fix\nset cbrange [" + std::to_string(map.least) + ":" + std::to_string(map.largest) +
             "]\nplot '-' matrix using ($1*" + std::to_string(map.xStep) + "):($2*" + std::to_string(map.yStep) +
             "):3 with image notitle\n";
    for (const auto& row : map.rows) {
        for (const double value : row)
            plots += std::to_string(value) + " ";
        plots += "\n";
    }
    plots += "e\n";
}

void Page::write(const std::string& summary, const std::vector<std::string>& credits) const
{
    std::filesystem::current_path(folder);
    std::ofstream("pictures.gnuplot") << "set terminal pngcairo size 900,360\n" << plots;
    const bool drawn = std::system("gnuplot pictures.gnuplot >gnuplot.log 2>&1") == 0;

    std::string body = element("h1", "What arkpx does to a recording") + element("p", escaped(summary));
    if (!drawn)
        body += element("p", "This page has no pictures: they take gnuplot, which is not here or failed "
                             "(gnuplot.log says how).");
    std::string list;
    for (const std::string& credit : credits)
        list += element("li", escaped(credit));
    body += element("p", "Worked on:") + element("ul", list);
    for (const Section& section : sections) {
        body += element("h2", escaped(section.title)) + element("p", escaped(section.introduction));
        if (!section.code.empty())
            body += element("pre", escaped(section.code));
        body += section.body;
        body += element("table",
                        element("tr", "<th></th><th>figure</th><th>measured</th><th>expected</th>") + section.figures);
        body += section.sounds;
    }
    std::ofstream file("index.html");
    file << "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\"><title>arkpx</title>\n"
         << element("style", style) << (drawn ? "" : "<style>figure { display: none; }</style>\n") << "</head><body>\n"
         << body << "</body></html>\n";
    if (!file.flush())
        throw std::runtime_error("cannot write " + (folder / "index.html").string());
}

} // namespace demo
