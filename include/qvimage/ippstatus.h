#ifndef QVIMAGE_IPPSTATUS_H
#define QVIMAGE_IPPSTATUS_H

/* Every named status code of the library with the sentence that ippGetStatusString shows after
   "name: ". Rows are sorted by code. QV_STATUS_ROWS(X) calls X(name, code, sentence) for each
   named row; the enumeration below and the text table of the library are both built from it. */

/* clang-format off */
#define QV_STATUS_ROWS(X) \
  X(ippStsNotSupportedModeErr, -9999, "Not supported mode error.") \
  X(ippStsCpuNotSupportedErr, -9998, "Cpu not supported error.") \
  X(ippStsMisalignedOffsetErr, -227, "Misaligned offset error.") \
  X(ippStsQuadraticNonResidueErr, -226, "Quadratic non residue error.") \
  X(ippStsBorderErr, -225, "Border error.") \
  X(ippStsDitherTypeErr, -224, "Dither type error.") \
  X(ippStsH264BufferFullErr, -223, "H264 buffer full error.") \
  X(ippStsWrongAffinitySettingErr, -222, "Wrong affinity setting error.") \
  X(ippStsLoadDynErr, -221, "Load dyn error.") \
  X(ippStsPointAtInfinity, -220, "Point at infinity error.") \
  X(ippStsI18nUnsupportedErr, -219, "I18n unsupported error.") \
  X(ippStsI18nMsgCatalogOpenErr, -218, "I18n message catalog open error.") \
  X(ippStsI18nMsgCatalogCloseErr, -217, "I18n message catalog close error.") \
  X(ippStsUnknownStatusCodeErr, -216, "Unknown status code.") \
  X(ippStsOFBSizeErr, -215, "OFB size error.") \
  X(ippStsLzoBrokenStreamErr, -214, "Lzo broken stream error.") \
  X(ippStsRoundModeNotSupportedErr, -213, "Round mode not supported error.") \
  X(ippStsDecimateFractionErr, -212, "Decimate fraction error.") \
  X(ippStsWeightErr, -211, "Weight error.") \
  X(ippStsQualityIndexErr, -210, "Quality index error.") \
  X(ippStsIIRPassbandRippleErr, -209, "IIR passband ripple error.") \
  X(ippStsFilterFrequencyErr, -208, "Filter frequency error.") \
  X(ippStsFIRGenOrderErr, -207, "FIR gen order error.") \
  X(ippStsIIRGenOrderErr, -206, "IIR gen order error.") \
  X(ippStsConvergeErr, -205, "Converge error.") \
  X(ippStsSizeMatchMatrixErr, -204, "Size match matrix error.") \
  X(ippStsCountMatrixErr, -203, "Count matrix error.") \
  X(ippStsRoiShiftMatrixErr, -202, "Roi shift matrix error.") \
  X(ippStsResizeNoOperationErr, -201, "Resize no operation error.") \
  X(ippStsSrcDataErr, -200, "Source data error.") \
  X(ippStsMaxLenHuffCodeErr, -199, "Max len huff code error.") \
  X(ippStsCodeLenTableErr, -198, "Code len table error.") \
  X(ippStsFreqTableErr, -197, "Frequency table error.") \
  X(ippStsIncompleteContextErr, -196, "Incomplete context error.") \
  X(ippStsSingularErr, -195, "Singular error.") \
  X(ippStsSparseErr, -194, "Sparse error.") \
  X(ippStsBitOffsetErr, -193, "Bit offset error.") \
  X(ippStsQPErr, -192, "QP error.") \
  X(ippStsVLCErr, -191, "VLC error.") \
  X(ippStsRegExpOptionsErr, -190, "Reg exp options error.") \
  X(ippStsRegExpErr, -189, "Reg exp error.") \
  X(ippStsRegExpMatchLimitErr, -188, "Reg exp match limit error.") \
  X(ippStsRegExpQuantifierErr, -187, "Reg exp quantifier error.") \
  X(ippStsRegExpGroupingErr, -186, "Reg exp grouping error.") \
  X(ippStsRegExpBackRefErr, -185, "Reg exp back ref error.") \
  X(ippStsRegExpChClassErr, -184, "Reg exp ch class error.") \
  X(ippStsRegExpMetaChErr, -183, "Reg exp meta ch error.") \
  X(ippStsStrideMatrixErr, -182, "Stride matrix error.") \
  X(ippStsCTRSizeErr, -181, "CTR size error.") \
  X(ippStsJPEG2KCodeBlockIsNotAttached, -180, "JPEG2K code block is not attached error.") \
  X(ippStsNotPosDefErr, -179, "Not pos def error.") \
  X(ippStsEphemeralKeyErr, -178, "Ephemeral key error.") \
  X(ippStsMessageErr, -177, "Message error.") \
  X(ippStsShareKeyErr, -176, "Share key error.") \
  X(ippStsIvalidPublicKey, -175, "Invalid public key error.") \
  X(ippStsIvalidPrivateKey, -174, "Invalid private key error.") \
  X(ippStsOutOfECErr, -173, "Out of EC error.") \
  X(ippStsECCInvalidFlagErr, -172, "ECC invalid flag error.") \
  X(ippStsMP3FrameHeaderErr, -171, "MP3 frame header error.") \
  X(ippStsMP3SideInfoErr, -170, "MP3 side info error.") \
  X(ippStsBlockStepErr, -169, "Block step error.") \
  X(ippStsMBStepErr, -168, "MB step error.") \
  X(ippStsAacPrgNumErr, -167, "Aac prg number error.") \
  X(ippStsAacSectCbErr, -166, "Aac sect cb error.") \
  X(ippStsAacSfValErr, -164, "Aac scale factor val error.") \
  X(ippStsAacCoefValErr, -163, "Aac coef val error.") \
  X(ippStsAacMaxSfbErr, -162, "Aac max scale factor band error.") \
  X(ippStsAacPredSfbErr, -161, "Aac pred scale factor band error.") \
  X(ippStsAacPlsDataErr, -160, "Aac pls data error.") \
  X(ippStsAacGainCtrErr, -159, "Aac gain ctr error.") \
  X(ippStsAacSectErr, -158, "Aac sect error.") \
  X(ippStsAacTnsNumFiltErr, -157, "Aac tns number filt error.") \
  X(ippStsAacTnsLenErr, -156, "Aac tns len error.") \
  X(ippStsAacTnsOrderErr, -155, "Aac tns order error.") \
  X(ippStsAacTnsCoefResErr, -154, "Aac tns coef res error.") \
  X(ippStsAacTnsCoefErr, -153, "Aac tns coef error.") \
  X(ippStsAacTnsDirectErr, -152, "Aac tns direct error.") \
  X(ippStsAacTnsProfileErr, -151, "Aac tns profile error.") \
  X(ippStsAacErr, -150, "Aac error.") \
  X(ippStsAacBitOffsetErr, -149, "Aac bit offset error.") \
  X(ippStsAacAdtsSyncWordErr, -148, "Aac adts sync word error.") \
  X(ippStsAacSmplRateIdxErr, -147, "Aac smpl rate index error.") \
  X(ippStsAacWinLenErr, -146, "Aac win len error.") \
  X(ippStsAacWinGrpErr, -145, "Aac win grp error.") \
  X(ippStsAacWinSeqErr, -144, "Aac win seq error.") \
  X(ippStsAacComWinErr, -143, "Aac com win error.") \
  X(ippStsAacStereoMaskErr, -142, "Aac stereo mask error.") \
  X(ippStsAacChanErr, -141, "Aac chan error.") \
  X(ippStsAacMonoStereoErr, -140, "Aac mono stereo error.") \
  X(ippStsAacStereoLayerErr, -139, "Aac stereo layer error.") \
  X(ippStsAacMonoLayerErr, -138, "Aac mono layer error.") \
  X(ippStsAacScalableErr, -137, "Aac scalable error.") \
  X(ippStsAacObjTypeErr, -136, "Aac obj type error.") \
  X(ippStsAacWinShapeErr, -135, "Aac win shape error.") \
  X(ippStsAacPcmModeErr, -134, "Aac pcm mode error.") \
  X(ippStsVLCUsrTblHeaderErr, -133, "VLC usr tbl header error.") \
  X(ippStsVLCUsrTblUnsupportedFmtErr, -132, "VLC usr tbl unsupported fmt error.") \
  X(ippStsVLCUsrTblEscAlgTypeErr, -131, "VLC usr tbl esc alg type error.") \
  X(ippStsVLCUsrTblEscCodeLengthErr, -130, "VLC usr tbl esc code length error.") \
  X(ippStsVLCUsrTblCodeLengthErr, -129, "VLC usr tbl code length error.") \
  X(ippStsVLCInternalTblErr, -128, "VLC internal tbl error.") \
  X(ippStsVLCInputDataErr, -127, "VLC input data error.") \
  X(ippStsVLCAACEscCodeLengthErr, -126, "VLCAAC esc code length error.") \
  X(ippStsNoiseRangeErr, -125, "Noise range error.") \
  X(ippStsUnderRunErr, -124, "Under run error.") \
  X(ippStsPaddingErr, -123, "Padding error.") \
  X(ippStsCFBSizeErr, -122, "CFB size error.") \
  X(ippStsPaddingSchemeErr, -121, "Padding scheme error.") \
  X(ippStsInvalidCryptoKeyErr, -120, "Invalid crypto key error.") \
  X(ippStsLengthErr, -119, "Length error.") \
  X(ippStsBadModulusErr, -118, "Bad modulus error.") \
  X(ippStsLPCCalcErr, -117, "LPC calc error.") \
  X(ippStsRCCalcErr, -116, "RC calc error.") \
  X(ippStsIncorrectLSPErr, -115, "Incorrect LSP error.") \
  X(ippStsNoRootFoundErr, -114, "No root found error.") \
  X(ippStsJPEG2KBadPassNumber, -113, "JPEG2K bad pass number error.") \
  X(ippStsJPEG2KDamagedCodeBlock, -112, "JPEG2K damaged code block error.") \
  X(ippStsH263CBPYCodeErr, -111, "H263CBPY code error.") \
  X(ippStsH263MCBPCInterCodeErr, -110, "H263MCBPC inter code error.") \
  X(ippStsH263MCBPCIntraCodeErr, -109, "H263MCBPC intra code error.") \
  X(ippStsNotEvenStepErr, -108, "Not even step error.") \
  X(ippStsHistoNofLevelsErr, -107, "Histo nof levels error.") \
  X(ippStsLUTNofLevelsErr, -106, "LUT nof levels error.") \
  X(ippStsMP4BitOffsetErr, -105, "MP4 bit offset error.") \
  X(ippStsMP4QPErr, -104, "MP4QP error.") \
  X(ippStsMP4BlockIdxErr, -103, "MP4 block index error.") \
  X(ippStsMP4BlockTypeErr, -102, "MP4 block type error.") \
  X(ippStsMP4MVCodeErr, -101, "MP4MV code error.") \
  X(ippStsMP4VLCCodeErr, -100, "MP4VLC code error.") \
  X(ippStsMP4DCCodeErr, -99, "MP4DC code error.") \
  X(ippStsMP4FcodeErr, -98, "MP4 fcode error.") \
  X(ippStsMP4AlignErr, -97, "MP4 align error.") \
  X(ippStsMP4TempDiffErr, -96, "MP4 temp diff error.") \
  X(ippStsMP4BlockSizeErr, -95, "MP4 block size error.") \
  X(ippStsMP4ZeroBABErr, -94, "MP4 zero BAB error.") \
  X(ippStsMP4PredDirErr, -93, "MP4 pred dir error.") \
  X(ippStsMP4BitsPerPixelErr, -92, "MP4 bits per pixel error.") \
  X(ippStsMP4VideoCompModeErr, -91, "MP4 video comp mode error.") \
  X(ippStsMP4LinearModeErr, -90, "MP4 linear mode error.") \
  X(ippStsH263PredModeErr, -83, "H263 pred mode error.") \
  X(ippStsH263BlockStepErr, -82, "H263 block step error.") \
  X(ippStsH263MBStepErr, -81, "H263MB step error.") \
  X(ippStsH263FrameWidthErr, -80, "H263 frame width error.") \
  X(ippStsH263FrameHeightErr, -79, "H263 frame height error.") \
  X(ippStsH263ExpandPelsErr, -78, "H263 expand pels error.") \
  X(ippStsH263PlaneStepErr, -77, "H263 plane step error.") \
  X(ippStsH263QuantErr, -76, "H263 quant error.") \
  X(ippStsH263MVCodeErr, -75, "H263MV code error.") \
  X(ippStsH263VLCCodeErr, -74, "H263VLC code error.") \
  X(ippStsH263DCCodeErr, -73, "H263DC code error.") \
  X(ippStsH263ZigzagLenErr, -72, "H263 zigzag len error.") \
  X(ippStsFBankFreqErr, -71, "F bank frequency error.") \
  X(ippStsFBankFlagErr, -70, "F bank flag error.") \
  X(ippStsFBankErr, -69, "F bank error.") \
  X(ippStsNegOccErr, -67, "Neg occ error.") \
  X(ippStsCdbkFlagErr, -66, "Cdbk flag error.") \
  X(ippStsSVDCnvgErr, -65, "SVD cnvg error.") \
  X(ippStsJPEGHuffTableErr, -64, "JPEG huff table error.") \
  X(ippStsJPEGDCTRangeErr, -63, "JPEGDCT range error.") \
  X(ippStsJPEGOutOfBufErr, -62, "JPEG out of buf error.") \
  X(ippStsDrawTextErr, -61, "Draw text error.") \
  X(ippStsChannelOrderErr, -60, "Incorrect order of the destination channels.") \
  X(ippStsZeroMaskValuesErr, -59, "Zero mask values error.") \
  X(ippStsQuadErr, -58, "Quad error.") \
  X(ippStsRectErr, -57, "Rect error.") \
  X(ippStsCoeffErr, -56, "Coeff error.") \
  X(ippStsNoiseValErr, -55, "Noise val error.") \
  X(ippStsDitherLevelsErr, -54, "Dither levels error.") \
  X(ippStsNumChannelsErr, -53, "Number channels error.") \
  X(ippStsCOIErr, -52, "COI error.") \
  X(ippStsDivisorErr, -51, "Divisor error.") \
  X(ippStsAlphaTypeErr, -50, "Illegal type of image compositing operation.") \
  X(ippStsGammaRangeErr, -49, "Gamma range error.") \
  X(ippStsGrayCoefSumErr, -48, "Gray coef sum error.") \
  X(ippStsChannelErr, -47, "Channel error.") \
  X(ippStsToneMagnErr, -46, "Tone magnitude error.") \
  X(ippStsToneFreqErr, -45, "Tone frequency error.") \
  X(ippStsTonePhaseErr, -44, "Tone phase error.") \
  X(ippStsTrnglMagnErr, -43, "Triangle magnitude error.") \
  X(ippStsTrnglFreqErr, -42, "Triangle frequency error.") \
  X(ippStsTrnglPhaseErr, -41, "Triangle phase error.") \
  X(ippStsTrnglAsymErr, -40, "Triangle asym error.") \
  X(ippStsHugeWinErr, -39, "Huge win error.") \
  X(ippStsJaehneErr, -38, "Jaehne error.") \
  X(ippStsStrideErr, -37, "Stride error.") \
  X(ippStsEpsValErr, -36, "Eps val error.") \
  X(ippStsWtOffsetErr, -35, "Wt offset error.") \
  X(ippStsAnchorErr, -34, "Anchor error.") \
  X(ippStsMaskSizeErr, -33, "Mask size error.") \
  X(ippStsShiftErr, -32, "Shift error.") \
  X(ippStsSampleFactorErr, -31, "Sample factor error.") \
  X(ippStsSamplePhaseErr, -30, "Sample phase error.") \
  X(ippStsFIRMRFactorErr, -29, "FIRMR factor error.") \
  X(ippStsFIRMRPhaseErr, -28, "FIRMR phase error.") \
  X(ippStsRelFreqErr, -27, "Rel frequency error.") \
  X(ippStsFIRLenErr, -26, "FIR len error.") \
  X(ippStsIIROrderErr, -25, "IIR order error.") \
  X(ippStsDlyLineIndexErr, -24, "Delay line index error.") \
  X(ippStsResizeFactorErr, -23, "Resize factor error.") \
  X(ippStsInterpolationErr, -22, "Invalid interpolation mode.") \
  X(ippStsMirrorFlipErr, -21, "Mirror flip error.") \
  X(ippStsMoment00ZeroErr, -20, "Moment00 zero error.") \
  X(ippStsThreshNegLevelErr, -19, "Thresh neg level error.") \
  X(ippStsThresholdErr, -18, "Threshold error.") \
  X(ippStsContextMatchErr, -17, "Context match error.") \
  X(ippStsFftFlagErr, -16, "Fft flag error.") \
  X(ippStsFftOrderErr, -15, "Fft order error.") \
  X(ippStsStepErr, -14, "Step value is not valid.") \
  X(ippStsScaleRangeErr, -13, "Scale bounds are out of range.") \
  X(ippStsDataTypeErr, -12, "Data type error.") \
  X(ippStsOutOfRangeErr, -11, "Out of range error.") \
  X(ippStsDivByZeroErr, -10, "Div by zero error.") \
  X(ippStsMemAllocErr, -9, "Mem alloc error.") \
  X(ippStsNullPtrErr, -8, "Null pointer error.") \
  X(ippStsRangeErr, -7, "Range error.") \
  X(ippStsSizeErr, -6, "Incorrect value for data size.") \
  X(ippStsBadArgErr, -5, "Incorrect arg/param of the function.") \
  X(ippStsNoMemErr, -4, "Not enough memory for the operation.") \
  X(ippStsSAReservedErr3, -3, "SA reserved Err3 error.") \
  X(ippStsErr, -2, "Unclassified error.") \
  X(ippStsSAReservedErr1, -1, "SA reserved Err1 error.") \
  X(ippStsNoErr, 0, "No errors.") \
  X(ippStsNoOperation, 1, "Warning: no operation.") \
  X(ippStsMisalignedBuf, 2, "Warning: misaligned buf.") \
  X(ippStsSqrtNegArg, 3, "Warning: sqrt neg arg.") \
  X(ippStsInvZero, 4, "Warning: inv zero.") \
  X(ippStsEvenMedianMaskSize, 5, "Warning: even median mask size.") \
  X(ippStsDivByZero, 6, "Warning: div by zero.") \
  X(ippStsLnZeroArg, 7, "Warning: ln zero arg.") \
  X(ippStsLnNegArg, 8, "Warning: ln neg arg.") \
  X(ippStsNanArg, 9, "Warning: nan arg.") \
  X(ippStsJPEGMarker, 10, "Warning: JPEG marker.") \
  X(ippStsResFloor, 11, "Warning: res floor.") \
  X(ippStsOverflow, 12, "Warning: overflow.") \
  X(ippStsLSFLow, 13, "Warning: LSF low.") \
  X(ippStsLSFHigh, 14, "Warning: LSF high.") \
  X(ippStsLSFLowAndHigh, 15, "Warning: LSF low and high.") \
  X(ippStsZeroOcc, 16, "Warning: zero occ.") \
  X(ippStsUnderflow, 17, "Warning: underflow.") \
  X(ippStsSingularity, 18, "Warning: singularity.") \
  X(ippStsDomain, 19, "Warning: domain.") \
  X(ippStsNonIntelCpu, 20, "The target CPU is not Genuine Intel.") \
  X(ippStsCpuMismatch, 21, "Cannot set the library for the given CPU.") \
  X(ippStsNoIppFunctionFound, 22, "Warning: no ipp function found.") \
  X(ippStsDllNotFoundBestUsed, 23, "Warning: dll not found best used.") \
  X(ippStsNoOperationInDll, 24, "Warning: no operation in dll.") \
  X(ippStsInsufficientEntropy, 25, "Warning: insufficient entropy.") \
  X(ippStsOvermuchStrings, 26, "Warning: overmuch strings.") \
  X(ippStsOverlongString, 27, "Warning: overlong string.") \
  X(ippStsAffineQuadChanged, 28, "Warning: affine quad changed.") \
  X(ippStsWrongIntersectROI, 29, "Warning: wrong intersect ROI.") \
  X(ippStsWrongIntersectQuad, 30, "Warning: wrong intersect quad.") \
  X(ippStsSmallerCodebook, 31, "Warning: smaller codebook.") \
  X(ippStsSrcSizeLessExpected, 32, "Warning: source size less expected.") \
  X(ippStsDstSizeLessExpected, 33, "Warning: destination size less expected.") \
  X(ippStsStreamEnd, 34, "Warning: stream end.") \
  X(ippStsDoubleSize, 35, "Warning: double size.") \
  X(ippStsNotSupportedCpu, 36, "The CPU is not supported.") \
  X(ippStsUnknownCacheSize, 37, "The CPU is supported, but the size of the cache is unknown.") \
  X(ippStsSymKernelExpected, 38, "Warning: sym kernel expected.") \
  X(ippStsEvenMedianWeight, 39, "Warning: even median weight.") \
  X(ippStsWrongIntersectVOI, 40, "Warning: wrong intersect VOI.") \
  X(ippStsI18nMsgCatalogInvalid, 41, "Warning: I18n message catalog invalid.") \
  X(ippStsI18nGetMessageFail, 42, "Warning: I18n get message fail.") \
  X(ippStsWaterfall, 43, "Warning: waterfall.") \
  X(ippStsPrevLibraryUsed, 44, "Warning: prev library used.") \
  X(ippStsLLADisabled, 45, "Warning: LLA disabled.") \
  X(ippStsNoAntialiasing, 46, "Warning: no antialiasing.") \
  X(ippStsRepetitiveSrcData, 47, "Warning: repetitive source data.") \
  X(ippStsSizeWrn, 48, "Warning: size warning.")

/* clang-format on */

typedef int IppStatus;

enum {
#define QV_STATUS_ENUMERATOR(name, code, sentence) name = (code),
  QV_STATUS_ROWS(QV_STATUS_ENUMERATOR)
#undef QV_STATUS_ENUMERATOR
};

#endif
