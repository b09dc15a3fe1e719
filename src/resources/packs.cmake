# SPDX-License-Identifier: Apache-2.0
# What is in the three packs. Resource paths are part of the library: do not rename them.

obft_pack(Client_Default)
obft_pack_file("ORX/QSS/CustomStyleSheet_ORX.xml" "theme/CustomStyleSheet_ORX.xml")
obft_pack_picture("ORX/btn/FFC tool" "icons/client/ffc_tool.svg" "icons/states/normal.css")
obft_pack_picture("ORX/icon/window" "icons/client/window.svg")
foreach(_palette IN ITEMS
        mode1_WhiteHot mode2_BlackHot mode3_Fusion1 mode4_Rainbow
        mode5_Fusion2 mode6_Ironbow1 mode7_Ironbow2 mode8_Sepia
        mode9_Color1 mode10_Color2 mode11_IceFire mode12_Rain
        mode13_GreenHot mode14_RedHot)
    obft_pack_picture("ORX/Temperature/${_palette}" "palettes/${_palette}.svg")
endforeach()
obft_pack_end()

# Arrows, check marks and the like are drawn by the controls themselves, in every colour and size.
obft_pack(StyledCtl_Default)
foreach(_kind IN ITEMS error information question success warning)
    obft_pack_picture("ORXStyledCtl/message_${_kind}" "icons/styledctl/message_${_kind}.svg")
endforeach()
obft_pack_end()

obft_pack(ToolBarBtn_Default)
foreach(_button IN ITEMS "Save;save" "refresh;refresh")
    list(GET _button 0 _name)
    list(GET _button 1 _drawing)
    obft_pack_picture("ORXToolBarBtn/${_name}" "icons/toolbar/${_drawing}.svg" "icons/states/normal.css")
    obft_pack_picture("ORXToolBarBtn/${_name}_sel" "icons/toolbar/${_drawing}.svg" "icons/states/hover.css")
    obft_pack_picture("ORXToolBarBtn/${_name}_dis" "icons/toolbar/${_drawing}.svg" "icons/states/disabled.css")
endforeach()
# The language button shows the language that it switches to.
foreach(_button IN ITEMS "Cn;zh" "En;en")
    list(GET _button 0 _name)
    list(GET _button 1 _drawing)
    foreach(_state IN ITEMS normal hover)
        obft_pack_picture("ORXToolBarBtn/icon_${_name}_${_state}"
            "icons/toolbar/language_${_drawing}.svg" "icons/states/${_state}.css")
    endforeach()
endforeach()
obft_pack_end()
