#include "Player/Desktop/SourceRules.h"

#include "Player/Desktop/FilmLocation.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <glib.h>
#include <memory>
#include <system_error>

namespace KivUICore::Player {

namespace {

namespace fs = std::filesystem;

constexpr std::array<const char*, 2> listExtensions{".m3u", ".m3u8"};
constexpr std::array<std::string_view, 7> schemes{"file", "http", "https", "rtsp", "rtsps", "rtmp", "rtmps"};

// What lies under those schemes. None of these waits for others to connect.
const std::string serverProtocols =
    "http,https,httpproxy,tls,tcp,crypto,data,rtmp,rtmps,rtmpt,rtmpts,ffrtmphttp";

// Kinds of films, sounds, pictures and subtitles that stand for themselves, and lists of such. Left out is
// what describes network connections (sdp), names files in a language of its own (concat), reads devices, or
// is taken for a film by mistake.
const std::string formats =
    "matroska,mov,avi,asf,asf_o,flv,live_flv,kux,mpeg,mpegts,mpegvideo,ogg,rm,ivr,nut,nuv,nsv,mxf,gxf,wtv,dv,"
    "swf,roq,smk,bink,flic,yuv4mpegpipe,ivf,obu,av1,h261,h263,h264,hevc,m4v,vc1,vc1test,dirac,dnxhd,"
    "cavsvideo,avs2,avs3,mjpeg,mjpeg_2000,smjpeg,mpjpeg,pva,pmp,dhav,cine,vivo,lxf,ty,"
    "hls,dash,rtsp,"
    "aac,ac3,eac3,dts,dtshd,truehd,mlp,mp3,flac,wav,w64,aiff,caf,au,amr,amrnb,amrwb,ape,mpc,mpc8,tak,tta,wv,"
    "voc,dsf,iff,oma,xwma,qcp,spdif,loas,shn,sox,adx,aa,"
    "gif,apng,ico,bmp_pipe,png_pipe,jpeg_pipe,jpegls_pipe,jpegxl_pipe,j2k_pipe,tiff_pipe,webp_pipe,psd_pipe,"
    "ppm_pipe,pgm_pipe,pbm_pipe,pam_pipe,qoi_pipe,dds_pipe,exr_pipe,sgi_pipe,sunrast_pipe,"
    "srt,ass,webvtt,microdvd,mpl2,jacosub,sami,subviewer,subviewer1,realtext,pjs,vplayer,stl,scc,sup,vobsub,"
    "mpsub,aqtitle,lrc";

std::string demuxerOptions(const std::string& protocols) {
    return "format_whitelist=[" + formats + "],protocol_whitelist=[" + protocols + "]";
}

// What comes from a server leads to servers alone; a file may lead to other files.
std::string serverOptions() { return demuxerOptions(serverProtocols); }
std::string fileOptions() { return demuxerOptions("file," + serverProtocols); }

std::string_view schemeOf(const std::string& location) {
    return isUrl(location) ? std::string_view(location).substr(0, location.find("://")) : schemes.front();
}

std::string openFileName(mpv_handle* handle) {
    const std::unique_ptr<char, decltype(&mpv_free)> name(
        mpv_get_property_string(handle, "stream-open-filename"), mpv_free);
    return name ? name.get() : "";
}

// Lists of films need no header. Where they are as short as that the library takes them for none.
bool isShortList(const std::string& path) {
    constexpr std::uintmax_t tooShort = 10;
    const std::string extension = fs::path(path).extension().string();
    const bool isNamedSo = std::any_of(listExtensions.begin(), listExtensions.end(), [&](const char* each) {
        return g_ascii_strcasecmp(extension.c_str(), each) == 0;
    });
    std::error_code error;
    return isNamedSo && fs::is_regular_file(path, error) && fs::file_size(path, error) <= tooShort;
}

void allowFiles(mpv_handle* handle, const std::string& path) {
    mpv_set_property_string(handle, "file-local-options/demuxer-lavf-o", fileOptions().c_str());
    if (isShortList(path)) {
        mpv_set_property_string(handle, "file-local-options/demuxer", "playlist");
    }
}

// The first word between two others.
std::string_view between(std::string_view text, std::string_view before, std::string_view after) {
    const std::size_t start = text.find(before) + before.size();
    return text.substr(start, text.find(after, start) - start);
}

} // namespace

std::array<std::pair<std::string, std::string>, 3> SourceRules::settings() {
    return {{
        {"load-unsafe-playlists", "no"},
        {"stream-lavf-o", "protocol_whitelist=[" + serverProtocols + "]"},
        {"demuxer-lavf-o", serverOptions()},
    }};
}

void SourceRules::askFor(mpv_handle* handle) { mpv_hook_add(handle, 0, "on_load", 0); }

std::optional<SourceRules::Refusal> SourceRules::answer(mpv_handle* handle, const mpv_event_hook& question) {
    std::optional<Refusal> refusal;
    const std::string location = openFileName(handle);
    const std::string_view scheme = schemeOf(location);
    if (std::find(schemes.begin(), schemes.end(), scheme) == schemes.end()) {
        refusal = {Culprit::Film,
                   "only files and addresses of http, https, rtsp, rtsps, rtmp and rtmps are played"};
        mpv_set_property_string(handle, "stream-open-filename", "");
    } else if (scheme == schemes.front()) {
        allowFiles(handle, *localPath(location));
    }
    mpv_hook_continue(handle, question.id);
    return refusal;
}

std::optional<SourceRules::Refusal> SourceRules::refusalIn(std::string_view message) {
    if (message.find("Format not on whitelist") != std::string_view::npos) {
        const std::string_view format = message.substr(0, message.find(": Format"));
        return Refusal{Culprit::Film, "what is of this kind (" + std::string(format) + ") is not played"};
    }
    if (message.find(" not on whitelist") != std::string_view::npos) {
        return Refusal{Culprit::Film, "it leads to an address that is not opened (" +
                                          std::string(between(message, "Protocol '", "'")) + ")"};
    }
    if (message.starts_with("Refusing to load potentially unsafe URL")) {
        return Refusal{Culprit::List, "a playlist must not lead to such a place"};
    }
    return std::nullopt;
}

} // namespace KivUICore::Player
