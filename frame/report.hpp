// How a failure reaches its message, in every chapter whose engines serve
// several routines (the zero finders now, quadrature next).
//
// A failure is named once, where it is detected, and raised as the catalogue
// message of the routine being served, with no status of its own in between:
//  - code that knows its routine raises at once with fail(Msg::X, values...).
//    The direct drivers are templates on the routine's message struct Msg
//    (C05AYF_msg, C05ADF_msg, ...), so one driver serves a routine and its
//    older interface and checks their arguments itself.
//  - an engine shared by routines whose messages differ (the reverse-
//    communication engines) returns a Report: an enumerator of its family's
//    Status naming what it detected, and the values the messages quote, in
//    record order. Its caller maps each status it can receive onto its own
//    message, once; a status the caller's own checks exclude gets no arm and
//    no message.
#pragma once

namespace lbx {

template <class Status>
struct Report {
    Status status = Status::ok;  // ok: an intermediate return or a success
    double v1 = 0.0, v2 = 0.0, v3 = 0.0, v4 = 0.0;
    int iv = 0;
};

}  // namespace lbx
