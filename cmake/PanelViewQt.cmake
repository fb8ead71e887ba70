# Finds the toolkit of the library: PANEL_VIEW_QT_TARGETS is what the library and its unit tests link.

if(PANEL_VIEW_QT EQUAL 5)
    find_package(Qt5 5.15 REQUIRED COMPONENTS Core Gui Svg Widgets Xml)
    set(PANEL_VIEW_QT_TARGETS Qt5::Core Qt5::Gui Qt5::Svg Qt5::Widgets Qt5::Xml)
elseif(PANEL_VIEW_QT EQUAL 4)
    find_package(Qt4 4.8 REQUIRED COMPONENTS QtCore QtGui QtSvg QtXml)
    set(PANEL_VIEW_QT_TARGETS Qt4::QtCore Qt4::QtGui Qt4::QtSvg Qt4::QtXml)
else()
    message(FATAL_ERROR "PANEL_VIEW_QT is \"${PANEL_VIEW_QT}\"; it must be 5 or 4")
endif()
