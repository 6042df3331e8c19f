pragma Singleton
import QtQuick

// The window's colors and sizes. Sizes are in points, durations in milliseconds.
QtObject {
    property bool dark: false

    readonly property color background: dark ? "#000000" : "#f2f2f7"
    readonly property color card: dark ? "#1c1c1e" : "#ffffff"
    readonly property color pressed: dark ? "#2c2c2e" : "#e1e1e6"
    readonly property color separator: dark ? "#38383a" : "#d6d6da"
    readonly property color label: dark ? "#ffffff" : "#101012"
    readonly property color secondaryLabel: dark ? "#9d9da6" : "#67676e"
    readonly property color disabledLabel: dark ? "#5f5f66" : "#a9a9b0"
    readonly property color chevron: dark ? "#5c5c62" : "#bcbcc2"
    readonly property color accent: dark ? "#4aa3ff" : "#0a67d8"
    readonly property color accentLabel: "#ffffff"
    readonly property color switchOn: dark ? "#30d158" : "#34c759"
    readonly property color switchOff: dark ? "#39393d" : "#e4e4e9"
    readonly property color segmentTrack: dark ? "#2c2c2f" : "#e8e8ed"
    readonly property color segmentThumb: dark ? "#636369" : "#ffffff"
    readonly property color bar: dark ? "#161618" : "#fafafc"
    readonly property color sheet: dark ? "#1c1c1e" : "#f6f6f9"
    readonly property color field: dark ? "#2c2c2f" : "#ffffff"
    readonly property color dim: dark ? "#99000000" : "#66000000"
    // For an icon without an image.
    readonly property color placeholder: dark ? "#48484d" : "#8e8e96"
    readonly property color placeholderLabel: "#ffffff"
    readonly property color scrollThumb: dark ? "#99ffffff" : "#70000000"
    readonly property color segmentOutline: dark ? "#00000000" : "#18000000"
    readonly property color warning: dark ? "#ff9f0a" : "#b35c00"
    // An outline for items that may have the same color as their background.
    readonly property color outline: dark ? "#33ffffff" : "#22000000"

    readonly property int statusBarHeight: 20
    readonly property int barHeight: 44
    readonly property int rowHeight: 44
    // The sum of the space above and below a row's title.
    readonly property int rowPadding: 22
    readonly property int gutter: 16
    readonly property int cornerRadius: 10
    readonly property int contentWidth: 640

    readonly property string fontFamily: "Inter"
    readonly property int bodySize: 16
    readonly property int footnoteSize: 13

    readonly property int quick: 160
    readonly property int slow: 340

    // The distance of a group's card from the edge of a page of that width.
    function cardInset(width: real): real {
        return Math.max(gutter, (width - contentWidth) / 2);
    }
}
